#include "edit/clipboard/ClipboardWriter.h"

#include "edit/clipboard/ClipboardBlock.h"
#include "edit/clipboard/RecordWriter.h"
#include "model/records/FrameWalk.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace korvane {

namespace {

using namespace clipboard;

/// Builds a block from its header on.
class Writer : public RecordWriter {
  public:
    /// `tableSize` is the size of the table that material slots index.
    Writer(ClipboardContent content, std::size_t count, std::size_t tableSize)
        : tableSize_(tableSize) {
        word(static_cast<std::uint32_t>(content));
        word(0); // the payload size: finish() fills it in
        this->count(count);
    }

    void material(const MaterialRecord& material) {
        transferMaterial(*this, material);
        slack_ += materialSlack;
    }
    /// The block; the writer is used up.
    QByteArray finish() {
        std::uint8_t* slack = room(slack_);
        std::fill(slack, slack + slack_, std::uint8_t{0});
        const std::size_t payload = size() - headerSize;
        QByteArray bytes = take();
        put(reinterpret_cast<std::uint8_t*>(bytes.data()) + 4, static_cast<std::uint32_t>(payload));
        bytes.squeeze(); // the clipboard keeps it for a long time
        return bytes;
    }

    void materialSlots(const std::vector<std::int32_t>& slots) { indices(slots, tableSize_); }
    void currentSlot(const std::int32_t& slot, std::size_t slots) {
        word(static_cast<std::uint32_t>(slot) < slots ? static_cast<std::uint32_t>(slot) : 0);
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
    std::size_t tableSize_;
    std::size_t slack_ = 0;
};

/// The remap table: for each material of the table its position among those that the subtree uses,
/// or -1 if unused.
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
    writeFrame(out, frame);
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
