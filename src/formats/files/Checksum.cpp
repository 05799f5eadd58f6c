#include "formats/files/Checksum.h"

#include <algorithm>

namespace korvane {

namespace {

/// Reads the lowest byte first, for the same sums on every machine.
std::uint64_t wordOf(const std::uint8_t* bytes) {
    std::uint64_t word = 0;
    for (unsigned i = 0; i < 8; ++i) {
        word |= std::uint64_t{bytes[i]} << 8U * i;
    }
    return word;
}

/// Every step can be undone, so words that differ in any bit lead to different sums.
std::uint64_t mixed(std::uint64_t sum, std::uint64_t word) {
    constexpr std::uint64_t odd = 0x9e3779b97f4a7c15U;
    sum = (sum ^ word) * odd;
    return sum ^ sum >> 32U;
}

} // namespace

void Checksum::add(std::span<const std::uint8_t> bytes) {
    const auto waiting = static_cast<std::size_t>(size_ % blockSize);
    size_ += bytes.size();
    if (waiting > 0) {
        const auto more = bytes.first(std::min(bytes.size(), blockSize - waiting));
        std::copy(more.begin(), more.end(), rest_.begin() + static_cast<std::ptrdiff_t>(waiting));
        if (waiting + more.size() < blockSize) {
            return;
        }
        addBlocks(rest_);
        bytes = bytes.subspan(more.size());
    }
    const std::size_t whole = bytes.size() / blockSize * blockSize;
    addBlocks(bytes.first(whole));
    bytes = bytes.subspan(whole);
    std::copy(bytes.begin(), bytes.end(), rest_.begin());
}

void Checksum::addBlocks(std::span<const std::uint8_t> blocks) {
    // independent sums, so that no step waits for another
    std::array<std::uint64_t, sums> sum = sums_;
    for (std::size_t at = 0; at < blocks.size(); at += blockSize) {
        for (std::size_t i = 0; i < sums; ++i) {
            sum[i] = mixed(sum[i], wordOf(blocks.data() + at + i * wordSize));
        }
    }
    sums_ = sum;
}

std::uint64_t Checksum::value() const {
    std::array<std::uint8_t, blockSize> last{};
    std::copy_n(rest_.begin(), size_ % blockSize, last.begin());
    Checksum whole = *this;
    whole.addBlocks(last);
    std::uint64_t all = size_;
    for (const std::uint64_t sum : whole.sums_) {
        all = mixed(all, sum);
    }
    return all;
}

} // namespace korvane
