#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// Reads the bytes of a picture one after the other. Past the end it gives zeros; check
/// remaining() where that matters.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t remaining() const { return bytes_.size(); }

    std::uint8_t byte() {
        if (bytes_.empty()) {
            return 0;
        }
        const std::uint8_t value = bytes_.front();
        bytes_ = bytes_.subspan(1);
        return value;
    }
    std::uint16_t littleEndian16() {
        const std::uint8_t low = byte();
        return static_cast<std::uint16_t>(low | byte() << 8);
    }
    std::uint32_t littleEndian32() {
        const std::uint32_t low = littleEndian16();
        return low | std::uint32_t{littleEndian16()} << 16U;
    }
    std::uint16_t bigEndian16() {
        const std::uint8_t high = byte();
        return static_cast<std::uint16_t>(high << 8 | byte());
    }
    std::uint32_t bigEndian32() {
        const std::uint32_t high = bigEndian16();
        return high << 16U | bigEndian16();
    }
    void skip(std::size_t count) { bytes_ = bytes_.subspan(std::min(count, bytes_.size())); }

  private:
    std::span<const std::uint8_t> bytes_;
};

} // namespace korvane
