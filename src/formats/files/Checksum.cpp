#include "formats/files/Checksum.h"

#include <algorithm>

namespace korvane {

namespace {

/// The same on every machine: the lowest byte first.
std::uint64_t wordOf(const std::uint8_t* bytes) {
    std::uint64_t word = 0;
    for (unsigned i = 0; i < 8; ++i) {
        word |= std::uint64_t{bytes[i]} << 8U * i;
    }
    return word;
}

/// A word that differs in any bit gives another sum, as each of these steps can be taken back.
std::uint64_t mixed(std::uint64_t sum, std::uint64_t word) {
    constexpr std::uint64_t odd = 0x9e3779b97f4a7c15U;
    sum = (sum ^ word) * odd;
    return sum ^ sum >> 32U;
}

} // namespace

void Checksum::add(std::span<const std::uint8_t> bytes) {
    const auto waiting = static_cast<std::size_t>(size_ % wordSize);
    size_ += bytes.size();
    if (waiting > 0) {
        const auto more = bytes.first(std::min(bytes.size(), wordSize - waiting));
        std::copy(more.begin(), more.end(), rest_.begin() + static_cast<std::ptrdiff_t>(waiting));
        if (waiting + more.size() < wordSize) {
            return;
        }
        sum_ = mixed(sum_, wordOf(rest_.data()));
        bytes = bytes.subspan(more.size());
    }
    std::uint64_t sum = sum_;
    for (; bytes.size() >= wordSize; bytes = bytes.subspan(wordSize)) {
        sum = mixed(sum, wordOf(bytes.data()));
    }
    sum_ = sum;
    std::copy(bytes.begin(), bytes.end(), rest_.begin());
}

std::uint64_t Checksum::value() const {
    std::uint64_t last = 0;
    for (unsigned i = 0; i < size_ % wordSize; ++i) {
        last |= std::uint64_t{rest_[i]} << 8U * i;
    }
    return mixed(mixed(sum_, last), size_);
}

} // namespace korvane
