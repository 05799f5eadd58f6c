#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace korvane {

/// A checksum of bytes, whatever pieces they come in. Made for speed: it detects accidental
/// changes, not forgeries.
class Checksum {
  public:
    void add(std::span<const std::uint8_t> bytes);
    void add(std::string_view bytes) {
        add(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    }
    [[nodiscard]] std::uint64_t value() const;
    /// The number of bytes added.
    [[nodiscard]] std::uint64_t size() const { return size_; }

  private:
    static constexpr std::size_t wordSize = 8;
    static constexpr std::size_t sums = 4;
    static constexpr std::size_t blockSize = sums * wordSize;

    void addBlocks(std::span<const std::uint8_t> blocks);

    std::array<std::uint64_t, sums> sums_{};
    std::uint64_t size_ = 0;
    /// The bytes that do not yet fill a block.
    std::array<std::uint8_t, blockSize> rest_{};
};

/// Returns the checksum of bytes that are all available at once.
inline std::uint64_t checksumOf(std::span<const std::uint8_t> bytes) {
    Checksum sum;
    sum.add(bytes);
    return sum.value();
}

} // namespace korvane
