#include "edit/clipboard/ClipboardEdit.h"

#include "edit/clipboard/ClipboardWriter.h"
#include "edit/history/PasteEdits.h"
#include "model/records/FrameWalk.h"

#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

namespace korvane {

namespace {

using Image = std::shared_ptr<const TextureImage>;

/// The numbers of the materials that Copy takes from the selection; some may be invalid.
std::vector<std::int32_t> selectedNumbers(const ModelDocument& document) {
    const NodeData& selected = document.Selected;
    if (selected.NodeKind == NodeKind::TableMaterial) {
        return {selected.ItemIndex};
    }
    if (selected.NodeKind == NodeKind::MaterialTable) {
        std::vector<std::int32_t> all(document.Materials.size());
        std::iota(all.begin(), all.end(), 0);
        return all;
    }
    const FrameRecord* frame = document.selectedFrame();
    if (frame == nullptr || selected.NodeKind == NodeKind::MeshMaterialList) {
        return frame == nullptr ? std::vector<std::int32_t>() : frame->Mesh.MaterialSlotList;
    }
    const auto slot = static_cast<std::size_t>(selected.ItemIndex);
    const std::vector<std::int32_t>& slots = frame->Mesh.MaterialSlotList;
    return slot < slots.size() ? std::vector{slots[slot]} : std::vector<std::int32_t>();
}

std::vector<const MaterialRecord*> selectedMaterials(const ModelDocument& document) {
    std::vector<const MaterialRecord*> materials;
    for (const std::int32_t number : selectedNumbers(document)) {
        if (static_cast<std::size_t>(number) < document.Materials.size()) {
            materials.push_back(&document.Materials[static_cast<std::size_t>(number)]);
        }
    }
    return materials;
}

/// Loads missing images by their names, and shares equal images of one name, preferring those of
/// the document's materials: in a block each material has its own image.
void completeMaterials(std::vector<MaterialRecord>& materials, const ModelDocument& document,
                       const TextureSource& textures) {
    std::unordered_map<std::string, Image> known;
    for (const MaterialRecord& material : document.Materials) {
        known.try_emplace(material.TextureFile, material.TextureImage);
    }
    std::unordered_map<std::string, Image> brought;
    for (MaterialRecord& material : materials) {
        const std::string& name = material.TextureFile;
        if (material.HasTexture) {
            // costs no more than the pixels that came with the material
            const auto place = known.find(name);
            const Image& image =
                place != known.end()
                    ? place->second
                    : brought.try_emplace(name, material.TextureImage).first->second;
            if (*image == *material.TextureImage) {
                material.TextureImage = image;
            }
        } else if (!name.empty() && textures) {
            const auto place = known.find(name);
            material.TextureImage = place != known.end()
                                        ? place->second
                                        : known.emplace(name, textures(name)).first->second;
        }
    }
}

/// Shifts the subtree's material indices past the end of a table.
void renumberSlots(FrameRecord& top, std::size_t tableSize) {
    for (FrameWalk walk(top); !walk.done(); walk.next()) {
        for (std::int32_t& slot : walk.frame().Mesh.MaterialSlotList) {
            slot += slot < 0 ? 0 : static_cast<std::int32_t>(tableSize);
        }
    }
}

} // namespace

bool canCopy(NodeKind selected) {
    return canPaste(selected, ClipboardContent::Frame) ||
           canPaste(selected, ClipboardContent::Materials);
}

bool canPaste(NodeKind selected, ClipboardContent content) {
    switch (selected) {
    case NodeKind::Frame:
        return content == ClipboardContent::Frame;
    case NodeKind::MeshMaterialList:
    case NodeKind::MaterialSlot:
    case NodeKind::MaterialTable:
    case NodeKind::TableMaterial:
        return content == ClipboardContent::Materials;
    case NodeKind::None:
    case NodeKind::Mesh:
    case NodeKind::MeshNormals:
        break;
    }
    return false;
}

QByteArray copySelection(const ModelDocument& document) {
    if (document.Selected.NodeKind == NodeKind::Frame) {
        const FrameRecord* frame = document.selectedFrame();
        return frame == nullptr ? QByteArray() : encodeFrame(*frame, document.Materials);
    }
    return canCopy(document.Selected.NodeKind) ? encodeMaterials(selectedMaterials(document))
                                               : QByteArray();
}

bool pasteIntoSelection(ModelDocument& document, EditHistory& history, ClipboardItem item,
                        const TextureSource& textures) {
    const NodeData& selected = document.Selected;
    const std::int32_t position = history.position();
    if (auto* copied = std::get_if<CopiedFrame>(&item)) {
        if (canPaste(selected.NodeKind, ClipboardContent::Frame) && selected.Frame) {
            completeMaterials(copied->materials, document, textures);
            renumberSlots(copied->frame, document.Materials.size());
            pasteFrame(history, document, *selected.Frame, std::move(copied->frame),
                       std::move(copied->materials));
        }
    } else if (auto* materials = std::get_if<CopiedMaterials>(&item)) {
        if (!canPaste(selected.NodeKind, ClipboardContent::Materials) || materials->empty()) {
            return false;
        }
        completeMaterials(*materials, document, textures);
        if (selected.Frame) {
            pasteMeshMaterials(history, document, *selected.Frame, std::move(*materials));
        } else {
            pasteMaterials(history, document, std::move(*materials));
        }
    }
    return history.position() != position;
}

} // namespace korvane
