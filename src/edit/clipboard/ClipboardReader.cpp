#include "edit/clipboard/ClipboardReader.h"

#include "edit/clipboard/ClipboardLayout.h"
#include "formats/files/ByteReader.h"
#include "model/document/ModelDocument.h"

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

namespace korvane {

namespace {

using namespace clipboard;

/// Ends the reading of a block from within.
struct BadBlock {};

void require(bool holds) {
    if (!holds) {
        throw BadBlock();
    }
}

std::uint32_t wordAt(const std::uint8_t* bytes) {
    return littleEndian32At(std::span<const std::uint8_t, 4>(bytes, 4));
}

/// Reads the records of a block. Room is made for what the bytes at hand can hold, and nothing is
/// kept that does not fit; throws BadBlock.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes) : in_(bytes) {}

    /// Reads the remap table of so many entries and the materials that it tells of.
    CopiedMaterials usedMaterials(std::size_t tableSize) {
        require(tableSize <= in_.remaining() / 4);
        std::int32_t used = 0;
        for (std::size_t i = 0; i < tableSize; ++i) {
            const auto place = static_cast<std::int32_t>(word());
            require(place == -1 || place == used);
            used += place == -1 ? 0 : 1;
            places_.push_back(place);
        }
        require(word() == static_cast<std::uint32_t>(used));
        return materials(static_cast<std::size_t>(used));
    }
    CopiedMaterials materials(std::size_t count) {
        require(count <= in_.remaining() / materialSize);
        CopiedMaterials materials(count);
        for (MaterialRecord& material : materials) {
            transferMaterial(*this, material);
        }
        return materials;
    }
    /// The frame of which so many stand above it. Of the outermost the zero at the end is not
    /// looked at: it may lie beyond the payload size, which is counted from the header on.
    void frame(FrameRecord& frame, std::size_t above) {
        // in a model it stands below another frame
        require(above < maxFrameDepth);
        transferFrame(*this, frame);
        ModelDocument::computeMeshData(frame);
        // no room is made beforehand: what the children of a frame may take, theirs may as well
        for (std::size_t left = count(leastFrameSize); left > 0; --left) {
            this->frame(frame.Children.emplace_back(), above + 1);
        }
        require(above == 0 || word() == 0);
    }

    template <class Value>
    void value(Value& value) {
        value = valueAt<Value>(bytes(sizeof(Value)).data());
    }
    void flag(bool& value) {
        const std::uint8_t byte = bytes(1)[0];
        require(byte <= 1);
        value = byte == 1;
    }
    // What stands in a model file ends a name at its line's end and a file name at a quote: a text
    // that went on behind that would make a file that says something else.
    void name(std::string& name) {
        text(name);
        require(name.find('\n') == std::string::npos);
    }
    void fileName(std::string& name) {
        text(name);
        const std::size_t quote = name.find('"');
        require(quote == std::string::npos || name.find('\n', quote) == std::string::npos);
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
    void materialSlots(std::vector<std::int32_t>& slots) {
        indices(slots, places_.size());
        for (std::int32_t& slot : slots) {
            if (slot != -1) {
                slot = places_[static_cast<std::size_t>(slot)];
                require(slot != -1);
            }
        }
    }
    void currentSlot(std::int32_t& slot, std::size_t slots) {
        value(slot);
        require(slot == 0 || static_cast<std::uint32_t>(slot) < slots);
    }
    void keys(std::vector<AnimationKeyRecord>& keys) {
        constexpr std::size_t leastKeySize = 8;
        keys.resize(count(leastKeySize));
        for (AnimationKeyRecord& key : keys) {
            value(key.Time);
            list(key.Values);
        }
    }
    void image(std::shared_ptr<const TextureImage>& image) {
        auto read = std::make_shared<TextureImage>();
        value(read->width);
        value(read->height);
        flag(read->HasAlpha);
        require(read->width > 0 && read->height > 0);
        const std::uint64_t pixels =
            static_cast<std::uint64_t>(read->width) * static_cast<std::uint64_t>(read->height);
        require(pixels <= in_.remaining() / 4);
        const std::uint8_t* next = bytes(static_cast<std::size_t>(pixels) * 4).data();
        read->pixels.resize(static_cast<std::size_t>(pixels));
        for (Rgba8& pixel : read->pixels) {
            pixel = {next[0], next[1], next[2], next[3]};
            next += 4;
        }
        image = std::move(read);
    }

  private:
    /// An integer, or a group of floats, which have to be finite: a model file could not give
    /// others back.
    template <class Value>
    static Value valueAt(const std::uint8_t* bytes) {
        constexpr std::uint32_t exponent = std::is_integral_v<Value> ? 0 : 0x7f800000;
        Words<Value> words;
        bool fit = true;
        for (std::uint32_t& word : words) {
            word = wordAt(bytes);
            fit &= exponent == 0 || (word & exponent) != exponent;
            bytes += 4;
        }
        require(fit);
        return std::bit_cast<Value>(words);
    }
    std::span<const std::uint8_t> bytes(std::size_t size) {
        require(size <= in_.remaining());
        return in_.take(size);
    }
    std::uint32_t word() { return wordAt(bytes(4).data()); }
    /// A count of elements of so many bytes at the least.
    std::size_t count(std::size_t elementSize) {
        const std::size_t count = word();
        require(count <= in_.remaining() / elementSize);
        return count;
    }
    /// How many corners the next polygons have in all.
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
    std::vector<std::int32_t> places_; ///< the remap table
};

ClipboardItem decode(std::span<const std::uint8_t> block) {
    const std::optional<ClipboardContent> content = contentOf(block);
    require(content.has_value() && block.size() >= headerSize);
    const std::size_t payload = wordAt(block.data() + 4);
    const std::size_t count = wordAt(block.data() + 8);
    // a clipboard may hand out more than it was given
    require(payload <= block.size() - headerSize);
    // the payload size is counted from the count on, so that the end of the block is beyond it
    Reader in(payload < 4 ? std::span<const std::uint8_t>()
                          : block.subspan(headerSize, payload - 4));
    if (content == ClipboardContent::Materials) {
        return in.materials(count);
    }
    CopiedFrame copied;
    copied.materials = in.usedMaterials(count);
    in.frame(copied.frame, 0);
    return copied;
}

} // namespace

std::optional<ClipboardContent> contentOf(std::span<const std::uint8_t> block) {
    if (block.size() >= 4) {
        const auto content = static_cast<ClipboardContent>(wordAt(block.data()));
        if (content == ClipboardContent::Frame || content == ClipboardContent::Materials) {
            return content;
        }
    }
    return std::nullopt;
}

std::optional<ClipboardItem> decodeBlock(std::span<const std::uint8_t> block) {
    try {
        return decode(block);
    } catch (const BadBlock&) {
        return std::nullopt;
    }
}

} // namespace korvane
