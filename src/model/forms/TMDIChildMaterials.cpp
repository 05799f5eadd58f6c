// The material editor of the document window.

#include "edit/forms/TMaterial.h"
#include "model/forms/TMDIChild.h"
#include "ui_TMDIChild.h"

namespace korvane {

void TMDIChild::editMaterials() {
    const NodeData& node = model_->Selected;
    const bool firstSlot =
        node.NodeKind == NodeKind::MeshMaterialList || node.NodeKind == NodeKind::MaterialTable;
    // the 2D views show no materials: only the 3D view has to keep up with the user's hand
    const auto live =
        connect(dialogs_.material, &TMaterial::edited, ui_->ThreeDWin, &TThreeDWinFrame::redraw);
    dialogs_.material->edit({&*model_, &history_, node.Frame, firstSlot ? 0 : node.ItemIndex});
    disconnect(live);
    if (dialogs_.material->slotsChanged()) {
        rebuildTree();
    }
    render3d();
}

} // namespace korvane
