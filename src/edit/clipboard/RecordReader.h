#pragma once

#include "edit/clipboard/ClipboardLayout.h"
#include "formats/files/ByteReader.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

namespace korvane::clipboard {

/// Thrown to end the reading of records.
struct BadRecord {};

inline void require(bool holds) {
    if (!holds) {
        throw BadRecord();
    }
}

inline std::uint32_t wordAt(const std::uint8_t* bytes) {
    return littleEndian32At(std::span<const std::uint8_t, 4>(bytes, 4));
}

/// Which numbers a record may hold.
enum class Floats { Finite, Any };

/// Reads the fields of records; throws BadRecord at what does not fit. Allocates in proportion to
/// the bytes left.
template <Floats floats>
class RecordReader {
  public:
    explicit RecordReader(std::span<const std::uint8_t> bytes) : in_(bytes) {}

    [[nodiscard]] std::size_t remaining() const { return in_.remaining(); }

    template <class Value>
    void value(Value& value) {
        value = valueAt<Value>(bytes(sizeof(Value)).data());
    }
    void flag(bool& value) {
        const std::uint8_t byte = bytes(1)[0];
        require(byte <= 1);
        value = byte == 1;
    }
    void text(std::string& text) {
        const auto characters = bytes(count(1));
        text.assign(characters.begin(), characters.end());
    }
    template <class Element>
    void list(std::vector<Element>& list) {
        const auto source = bytes(count(sizeof(Element)) * sizeof(Element));
        list.resize(source.size() / sizeof(Element));
        const std::uint8_t* next = source.data();
        for (Element& element : list) {
            element = valueAt<Element>(next);
            next += sizeof(Element);
        }
    }
    void flags(std::vector<bool>& flags) {
        const auto source = bytes(count(1));
        require(std::all_of(source.begin(), source.end(), [](std::uint8_t b) { return b <= 1; }));
        flags.assign(source.begin(), source.end());
    }
    void polygons(PolygonList& list, std::size_t limit) {
        const std::size_t count = this->count(4);
        list.reserveMore(count, cornersOf(count));
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t corners = word();
            const std::uint8_t* next = bytes(corners * 4).data();
            bool fit = true;
            for (std::uint32_t& corner : list.openCorners(corners)) {
                corner = wordAt(next);
                next += 4;
                fit &= corner < limit || corner == nowhere;
            }
            require(fit);
            list.closePolygon();
        }
    }
    void indices(std::vector<std::int32_t>& list, std::size_t limit) {
        this->list(list);
        require(std::all_of(list.begin(), list.end(), [limit](std::int32_t index) {
            return index == -1 || static_cast<std::uint32_t>(index) < limit;
        }));
    }
    void keys(std::vector<AnimationKeyRecord>& keys) {
        constexpr std::size_t leastKeySize = 8;
        keys.resize(count(leastKeySize));
        for (AnimationKeyRecord& key : keys) {
            value(key.Time);
            list(key.Values);
        }
    }

    std::span<const std::uint8_t> bytes(std::size_t size) {
        require(size <= in_.remaining());
        return in_.take(size);
    }
    std::uint32_t word() { return wordAt(bytes(4).data()); }
    /// Reads a count of elements with at least `elementSize` bytes each.
    std::size_t count(std::size_t elementSize) {
        const std::size_t count = word();
        require(count <= in_.remaining() / elementSize);
        return count;
    }

  private:
    /// `Value` is an integer or a struct of floats.
    template <class Value>
    static Value valueAt(const std::uint8_t* bytes) {
        constexpr bool any = floats == Floats::Any || std::is_integral_v<Value>;
        constexpr std::uint32_t exponent = 0x7f800000;
        Words<Value> words;
        bool fit = true;
        for (std::uint32_t& word : words) {
            word = wordAt(bytes);
            fit &= any || (word & exponent) != exponent;
            bytes += 4;
        }
        require(fit);
        return std::bit_cast<Value>(words);
    }
    /// Counts the corners of the next polygons.
    [[nodiscard]] std::size_t cornersOf(std::size_t polygons) const {
        ByteReader ahead = in_;
        std::size_t all = 0;
        for (std::size_t i = 0; i < polygons; ++i) {
            require(ahead.remaining() >= 4);
            const std::size_t corners = ahead.littleEndian32();
            require(corners <= ahead.remaining() / 4);
            ahead.skip(corners * 4);
            all += corners;
        }
        return all;
    }

    ByteReader in_;
};

/// Reads a frame and its descendants, except for the zero that ends its record. `above` is its
/// depth.
template <class Reader>
void readFrame(Reader& in, FrameRecord& frame, std::size_t above) {
    require(above <= maxFrameDepth);
    transferFrame(in, frame);
    // no reserve: at each level of nesting, a bad file could claim all remaining bytes
    for (std::size_t left = in.count(leastFrameSize); left > 0; --left) {
        FrameRecord& child = frame.Children.emplace_back();
        readFrame(in, child, above + 1);
        require(in.word() == 0);
    }
}

} // namespace korvane::clipboard
