// The material editor of the document window.

#include "edit/TMaterial.h"
#include "model/TMDIChild.h"
#include "ui_TMDIChild.h"

#include <numeric>

namespace korvane {

void TMDIChild::editMaterials() {
    const NodeData node = model_->Selected;
    const bool firstSlot =
        node.NodeKind == NodeKind::MeshMaterialList || node.NodeKind == NodeKind::MaterialTable;
    const std::int32_t slot = firstSlot ? 0 : node.ItemIndex;
    if (node.Frame) {
        if (FrameRecord* frame = frameAt(model_->Root, *node.Frame)) {
            frame->Mesh.CurrentSlot = slot;
            showMaterialEditor(*frame, node.Frame);
        }
        return;
    }
    // the table is edited as the slots of a frame that is no part of the model: the selection
    // stays where it is
    FrameRecord table;
    table.Mesh.MaterialSlotList.resize(model_->Materials.size());
    std::iota(table.Mesh.MaterialSlotList.begin(), table.Mesh.MaterialSlotList.end(), 0);
    table.Mesh.CurrentSlot = slot;
    showMaterialEditor(table, std::nullopt);
}

void TMDIChild::showMaterialEditor(FrameRecord& frame, const std::optional<FramePath>& path) {
    // the 2D views show no materials: only the 3D view has to keep up with the user's hand
    const auto live =
        connect(dialogs_.material, &TMaterial::edited, ui_->ThreeDWin, &TThreeDWinFrame::redraw);
    dialogs_.material->edit({&*model_, &history_, &frame, path});
    disconnect(live);
    if (!model_) {
        return; // the window was closed meanwhile
    }
    if (dialogs_.material->slotsChanged()) {
        rebuildTree();
    }
    render3d();
}

} // namespace korvane
