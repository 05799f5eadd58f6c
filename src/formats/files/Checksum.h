#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace korvane {

/// A number that differs for different bytes, whatever pieces they come in. Made for speed: it
/// finds accidents, no forgeries.
class Checksum {
  public:
    void add(std::span<const std::uint8_t> bytes);
    void add(std::string_view bytes) {
        add(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    }
    [[nodiscard]] std::uint64_t value() const;
    /// How many bytes there were.
    [[nodiscard]] std::uint64_t size() const { return size_; }

  private:
    static constexpr std::size_t wordSize = 8;
    static constexpr std::size_t sums = 4;
    static constexpr std::size_t blockSize = sums * wordSize;

    void addBlocks(std::span<const std::uint8_t> blocks);

    std::array<std::uint64_t, sums> sums_{};
    std::uint64_t size_ = 0;
    /// The bytes that are not yet a whole block.
    std::array<std::uint8_t, blockSize> rest_{};
};

/// The number of bytes that are there at once.
inline std::uint64_t checksumOf(std::span<const std::uint8_t> bytes) {
    Checksum sum;
    sum.add(bytes);
    return sum.value();
}

} // namespace korvane
