#include "edit/clipboard/ClipboardReader.h"

#include "edit/clipboard/RecordReader.h"
#include "model/document/ModelDocument.h"
#include "model/records/FrameWalk.h"

#include <string>
#include <utility>

namespace korvane {

namespace {

using namespace clipboard;

/// Reads the records of a block. Refuses infinities and NaN, which a model file could not restore.
class Reader : public RecordReader<Floats::Finite> {
  public:
    using RecordReader::RecordReader;

    /// Reads the remap table and the materials that it refers to.
    CopiedMaterials usedMaterials(std::size_t tableSize) {
        require(tableSize <= remaining() / 4);
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
        require(count <= remaining() / materialSize);
        CopiedMaterials materials(count);
        for (MaterialRecord& material : materials) {
            transferMaterial(*this, material);
        }
        return materials;
    }

    // In a model file a line feed ends a name, and a line feed after a quote ends a file name: text
    // after that would turn into other contents of the file.
    void name(std::string& name) {
        text(name);
        require(name.find('\n') == std::string::npos);
    }
    void fileName(std::string& name) {
        text(name);
        const std::size_t quote = name.find('"');
        require(quote == std::string::npos || name.find('\n', quote) == std::string::npos);
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
    void image(std::shared_ptr<const TextureImage>& image) {
        auto read = std::make_shared<TextureImage>();
        value(read->width);
        value(read->height);
        flag(read->HasAlpha);
        require(read->width > 0 && read->height > 0);
        const std::uint64_t pixels =
            static_cast<std::uint64_t>(read->width) * static_cast<std::uint64_t>(read->height);
        require(pixels <= remaining() / 4);
        const std::uint8_t* next = bytes(static_cast<std::size_t>(pixels) * 4).data();
        read->pixels.resize(static_cast<std::size_t>(pixels));
        for (Rgba8& pixel : read->pixels) {
            pixel = {next[0], next[1], next[2], next[3]};
            next += 4;
        }
        image = std::move(read);
    }

  private:
    std::vector<std::int32_t> places_; ///< the remap table
};

ClipboardItem decode(std::span<const std::uint8_t> block) {
    const std::optional<ClipboardContent> content = contentOf(block);
    require(content.has_value() && block.size() >= headerSize);
    const std::size_t payload = wordAt(block.data() + 4);
    const std::size_t count = wordAt(block.data() + 8);
    // a clipboard may return more bytes than it was given
    require(payload <= block.size() - headerSize);
    // readers measure the payload from the count on, which leaves out the last four bytes
    Reader in(payload < 4 ? std::span<const std::uint8_t>()
                          : block.subspan(headerSize, payload - 4));
    if (content == ClipboardContent::Materials) {
        return in.materials(count);
    }
    CopiedFrame copied;
    copied.materials = in.usedMaterials(count);
    // depth 1, as it will have a parent. Its closing zero stays unread: the payload may end before
    // it.
    readFrame(in, copied.frame, 1);
    for (FrameWalk walk(copied.frame); !walk.done(); walk.next()) {
        ModelDocument::computeMeshData(walk.frame());
    }
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
    } catch (const BadRecord&) {
        return std::nullopt;
    }
}

} // namespace korvane
