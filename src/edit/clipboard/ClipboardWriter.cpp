#include "edit/clipboard/ClipboardWriter.h"

#include "edit/clipboard/ClipboardBlock.h"
#include "edit/clipboard/ClipboardLayout.h"
#include "model/records/FrameWalk.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace korvane {

namespace {

using namespace clipboard;

constexpr std::size_t mostBytes = std::numeric_limits<std::uint32_t>::max();

std::uint8_t* put(std::uint8_t* out, std::uint32_t word) {
    out[0] = static_cast<std::uint8_t>(word);
    out[1] = static_cast<std::uint8_t>(word >> 8U);
    out[2] = static_cast<std::uint8_t>(word >> 16U);
    out[3] = static_cast<std::uint8_t>(word >> 24U);
    return out + 4;
}

std::uint32_t fitting(std::uint32_t index, std::size_t limit) {
    return index < limit ? index : nowhere;
}

/// Builds a block from its header on.
class Writer {
  public:
    /// `tableSize` is that of the table which material slots lead into.
    Writer(ClipboardContent content, std::size_t count, std::size_t tableSize)
        : tableSize_(tableSize) {
        word(static_cast<std::uint32_t>(content));
        word(0); // the payload size, known at the end
        this->count(count);
    }

    void material(const MaterialRecord& material) {
        transferMaterial(*this, material);
        slack_ += materialSlack;
    }
    void frame(const FrameRecord& frame) {
        transferFrame(*this, frame);
        count(frame.Children.size());
        for (const FrameRecord& child : frame.Children) {
            this->frame(child);
        }
        word(0);
    }
    /// The block; the writer is used up.
    QByteArray finish() {
        std::uint8_t* slack = room(slack_);
        std::fill(slack, slack + slack_, std::uint8_t{0});
        const auto payload = static_cast<std::size_t>(bytes_.size()) - headerSize;
        put(reinterpret_cast<std::uint8_t*>(bytes_.data()) + 4,
            static_cast<std::uint32_t>(payload));
        bytes_.squeeze(); // a clipboard keeps it for long
        return std::move(bytes_);
    }

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
            throw std::length_error("clipboard block");
        }
        word(static_cast<std::uint32_t>(size));
    }
    void name(const std::string& name) { text(name); }
    void fileName(const std::string& name) { text(name); }
    void text(const std::string& text) {
        count(text.size());
        std::uint8_t* out = room(text.size());
        for (const char character : text) {
            *out++ = static_cast<std::uint8_t>(character);
        }
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
    void materialSlots(const std::vector<std::int32_t>& slots) { indices(slots, tableSize_); }
    void currentSlot(const std::int32_t& slot, std::size_t slots) {
        word(static_cast<std::uint32_t>(slot) < slots ? static_cast<std::uint32_t>(slot) : 0);
    }
    void keys(const std::vector<AnimationKeyRecord>& keys) {
        count(keys.size());
        for (const AnimationKeyRecord& key : keys) {
            value(key.Time);
            list(key.Values);
        }
    }
    void image(const std::shared_ptr<const TextureImage>& image) {
        value(image->width);
        value(image->height);
        flag(image->HasAlpha);
        std::uint8_t* out = room(image->pixels.size() * 4);
        for (const Rgba8& pixel : image->pixels) {
            for (const std::uint8_t channel : {pixel.red, pixel.green, pixel.blue, pixel.alpha}) {
                *out++ = channel;
            }
        }
    }

  private:
    void word(std::uint32_t word) { put(room(4), word); }
    /// Makes the block longer by so many bytes, which the caller has to fill in.
    std::uint8_t* room(std::size_t size) {
        const auto used = static_cast<std::size_t>(bytes_.size());
        if (size > mostBytes - used) {
            throw std::length_error("clipboard block");
        }
        bytes_.resize(bytes_.size() + static_cast<qsizetype>(size));
        return reinterpret_cast<std::uint8_t*>(bytes_.data()) + used;
    }

    QByteArray bytes_;
    std::size_t tableSize_;
    std::size_t slack_ = 0;
};

/// The remap table: for every material of the table its place among those that the subtree uses,
/// -1 for the others.
std::vector<std::int32_t> placesOfUsed(const FrameRecord& top, std::size_t tableSize) {
    constexpr std::int32_t unused = -1;
    std::vector<std::int32_t> places(tableSize, unused);
    for (FrameWalk walk(top); !walk.done(); walk.next()) {
        for (const std::int32_t slot : walk.frame().Mesh.MaterialSlotList) {
            if (static_cast<std::size_t>(slot) < tableSize) {
                places[static_cast<std::size_t>(slot)] = 0;
            }
        }
    }
    std::int32_t next = 0;
    for (std::int32_t& place : places) {
        place = place == unused ? unused : next++;
    }
    return places;
}

} // namespace

QByteArray encodeFrame(const FrameRecord& frame, std::span<const MaterialRecord> table) {
    const std::vector<std::int32_t> places = placesOfUsed(frame, table.size());
    Writer out(ClipboardContent::Frame, places.size(), table.size());
    std::vector<const MaterialRecord*> used;
    for (std::size_t i = 0; i < places.size(); ++i) {
        out.value(places[i]);
        if (places[i] >= 0) {
            used.push_back(&table[i]);
        }
    }
    out.count(used.size());
    for (const MaterialRecord* material : used) {
        out.material(*material);
    }
    out.frame(frame);
    return out.finish();
}

QByteArray encodeMaterials(std::span<const MaterialRecord* const> materials) {
    Writer out(ClipboardContent::Materials, materials.size(), 0);
    for (const MaterialRecord* material : materials) {
        out.material(*material);
    }
    return out.finish();
}

} // namespace korvane
