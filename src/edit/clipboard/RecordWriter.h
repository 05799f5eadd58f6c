#pragma once

#include "edit/clipboard/ClipboardLayout.h"

#include <QByteArray>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace korvane::clipboard {

/// Writes the fields of records one after another. Throws std::length_error at four gigabytes.
class RecordWriter {
  public:
    template <class Value>
    void value(const Value& value) {
        std::uint8_t* out = room(sizeof(Value));
        for (const std::uint32_t word : wordsOf(value)) {
            out = put(out, word);
        }
    }
    void flag(const bool& value) { *room(1) = value ? 1 : 0; }
    void count(std::size_t size) {
        if (size > mostBytes) {
            throw std::length_error("records");
        }
        word(static_cast<std::uint32_t>(size));
    }
    void word(std::uint32_t word) { put(room(4), word); }
    void name(const std::string& name) { text(name); }
    void fileName(const std::string& name) { text(name); }
    void text(const std::string& text) {
        count(text.size());
        std::copy(text.begin(), text.end(), room(text.size()));
    }
    template <class Element>
    void list(const std::vector<Element>& list) {
        count(list.size());
        std::uint8_t* out = room(list.size() * sizeof(Element));
        for (const Element& element : list) {
            for (const std::uint32_t word : wordsOf(element)) {
                out = put(out, word);
            }
        }
    }
    void flags(const std::vector<bool>& flags) {
        count(flags.size());
        std::uint8_t* out = room(flags.size());
        for (const bool flag : flags) {
            *out++ = flag ? 1 : 0;
        }
    }
    /// Indices at or above the limit become `nowhere`.
    void polygons(const PolygonList& list, std::size_t limit) {
        count(list.size());
        std::uint8_t* out = room((list.size() + list.cornersFrom(0).size()) * 4);
        for (std::size_t i = 0; i < list.size(); ++i) {
            const std::span<const std::uint32_t> corners = list[i];
            out = put(out, static_cast<std::uint32_t>(corners.size()));
            for (const std::uint32_t corner : corners) {
                out = put(out, fitting(corner, limit));
            }
        }
    }
    void indices(const std::vector<std::int32_t>& list, std::size_t limit) {
        count(list.size());
        std::uint8_t* out = room(list.size() * 4);
        for (const std::int32_t index : list) {
            out = put(out, fitting(static_cast<std::uint32_t>(index), limit));
        }
    }
    void keys(const std::vector<AnimationKeyRecord>& keys) {
        count(keys.size());
        for (const AnimationKeyRecord& key : keys) {
            value(key.Time);
            list(key.Values);
        }
    }

  protected:
    static constexpr std::size_t mostBytes = std::numeric_limits<std::uint32_t>::max();

    static std::uint8_t* put(std::uint8_t* out, std::uint32_t word) {
        out[0] = static_cast<std::uint8_t>(word);
        out[1] = static_cast<std::uint8_t>(word >> 8U);
        out[2] = static_cast<std::uint8_t>(word >> 16U);
        out[3] = static_cast<std::uint8_t>(word >> 24U);
        return out + 4;
    }
    /// Appends bytes for the caller to fill in.
    std::uint8_t* room(std::size_t size) {
        const std::size_t used = this->size();
        if (size > mostBytes - used) {
            throw std::length_error("records");
        }
        bytes_.resize(bytes_.size() + static_cast<qsizetype>(size));
        return reinterpret_cast<std::uint8_t*>(bytes_.data()) + used;
    }
    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(bytes_.size()); }
    /// Returns the bytes and leaves the writer empty.
    QByteArray take() { return std::move(bytes_); }

  private:
    static std::uint32_t fitting(std::uint32_t index, std::size_t limit) {
        return index < limit ? index : nowhere;
    }

    QByteArray bytes_;
};

/// Writes a frame with its descendants.
template <class Writer>
void writeFrame(Writer& out, const FrameRecord& frame) {
    transferFrame(out, frame);
    out.count(frame.Children.size());
    for (const FrameRecord& child : frame.Children) {
        writeFrame(out, child);
    }
    out.word(0);
}

} // namespace korvane::clipboard
