#pragma once

#include <QByteArray>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// Returns a view of the array's bytes, valid until the array changes.
inline std::span<const std::uint8_t> bytesOf(const QByteArray& data) {
    return {reinterpret_cast<const std::uint8_t*>(data.constData()),
            static_cast<std::size_t>(data.size())};
}

/// Returns the number in four little-endian bytes.
inline std::uint32_t littleEndian32At(std::span<const std::uint8_t, 4> bytes) {
    return bytes[0] | std::uint32_t{bytes[1]} << 8U | std::uint32_t{bytes[2]} << 16U |
           std::uint32_t{bytes[3]} << 24U;
}

/// Reads the bytes of a picture or a clipboard block in sequence. Returns zeros past the end; check
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
    /// Returns the next bytes, or fewer at the end.
    std::span<const std::uint8_t> take(std::size_t count) {
        const auto taken = bytes_.first(std::min(count, bytes_.size()));
        bytes_ = bytes_.subspan(taken.size());
        return taken;
    }
    void skip(std::size_t count) { take(count); }

  private:
    std::span<const std::uint8_t> bytes_;
};

} // namespace korvane
