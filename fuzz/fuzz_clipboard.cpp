#include "edit/clipboard/ClipboardEdit.h"
#include "edit/clipboard/ClipboardReader.h"
#include "edit/clipboard/ClipboardWriter.h"
#include "model/document/StructureTree.h"
#include "render/software/SoftwareView.h"
#include "support/WriteText.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

using namespace korvane;
using Bytes = std::vector<std::uint8_t>;

QByteArray encoded(const ClipboardItem& item) {
    if (const auto* copied = std::get_if<CopiedFrame>(&item)) {
        return encodeFrame(copied->frame, copied->materials);
    }
    std::vector<const MaterialRecord*> materials;
    for (const MaterialRecord& material : std::get<CopiedMaterials>(item)) {
        materials.push_back(&material);
    }
    return encodeMaterials(materials);
}

std::optional<ClipboardItem> decoded(const QByteArray& block) {
    return decodeBlock({reinterpret_cast<const std::uint8_t*>(block.data()),
                        static_cast<std::size_t>(block.size())});
}

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Pastes the contents of a block, shows and saves the model, and undoes the paste.
void use(ClipboardItem item) {
    ModelDocument document;
    document.Materials.resize(1);
    EditHistory history;
    const bool frame = std::holds_alternative<CopiedFrame>(item);
    document.selectFrame(FramePath());
    if (!frame) {
        document.Selected.NodeKind = NodeKind::MaterialSlot;
    }
    const bool pasted = pasteIntoSelection(document, history, std::move(item), {});
    require(pasted == history.canUndo() && (pasted || !frame));
    const StructureTree tree(document);
    test::writeText(document);
    SoftwareView view;
    view.resize(20, 20);
    ViewState state;
    view.redraw(document, state);
    history.undo(document);
    require(document.Materials.size() == 1 && document.Root.Children.empty() &&
            document.Root.Mesh.MaterialSlotList.empty());
}

void readBlock(const Bytes& block) {
    std::optional<ClipboardItem> item = decodeBlock(block);
    if (!item) {
        return;
    }
    // the first copy drops unused materials, the second one must change nothing
    std::optional<ClipboardItem> once = decoded(encoded(*item));
    require(once.has_value());
    const QByteArray written = encoded(*once);
    once = decoded(written);
    require(once && encoded(*once) == written);
    use(std::move(*item));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes block(data, data + size);
    readBlock(block);
    constexpr std::size_t header = 12;
    if (size >= header) {
        // few inputs state their own size correctly
        const std::size_t payload = size - header;
        for (std::size_t i = 0; i < 4; ++i) {
            block[4 + i] = static_cast<std::uint8_t>(payload >> 8 * i);
        }
        readBlock(block);
    }
    return 0;
}
