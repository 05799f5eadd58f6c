// The "Structure" page of the document window.

#include "app/widgets/WindowFocus.h"
#include "edit/session/StatusText.h"
#include "formats/textures/TextureLoader.h"
#include "model/forms/TMDIChild.h"
#include "model/forms/TOKBottomDlg1.h"
#include "model/forms/TStructureView.h"
#include "model/forms/TframeF.h"
#include "model/records/FrameFlags.h"
#include "model/records/ModelText.h"
#include "ui_TMDIChild.h"

#include <QFileInfo>
#include <QItemSelection>
#include <QScopedValueRollback>

#include <memory>
#include <optional>
#include <utility>

namespace korvane {

void TMDIChild::setUpButtons() {
    const std::pair<QPushButton*, void (TMDIChild::*)()> handlers[] = {
        {ui_->EditButton, &TMDIChild::EditButtonClick},
        {ui_->RenameButton, &TMDIChild::RenameButtonClick},
        {ui_->DeleteButton, &TMDIChild::Deletebuttonclick},
        {ui_->AddButton, &TMDIChild::Addbuttonclick}};
    for (const auto& [button, handler] : handlers) {
        connect(button, &QPushButton::clicked, this, [this, handler = handler] {
            if (mayEdit()) {
                (this->*handler)();
            }
            // on a button the next Space, meant for the tree, would press it again
            focus_->give(*ui_->TreeView1);
        });
    }
    ui_->DeleteButton->installEventFilter(this);
}

void TMDIChild::ChildSelectedChange(const QItemSelection& selected) {
    if (!model_ || filling_) {
        return;
    }
    const std::optional<FramePath> oldFrame = model_->Selected.Frame;
    const QModelIndexList indexes = selected.indexes();
    model_->Selected = structure_->nodeData(indexes.value(0));
    model_->SelectionCopy = model_->Selected;
    showSelectedButtons();
    if (model_->Selected.Frame && model_->Selected.Frame != oldFrame) {
        model_->markSelection(*model_->Selected.Frame);
        render3d();
    }
}

void TMDIChild::showSelectedButtons() {
    const NodeData& node = model_->Selected;
    ui_->EditButton->setEnabled(node.CanEdit);
    ui_->AddButton->setEnabled(node.CanAdd);
    ui_->DeleteButton->setEnabled(node.CanDelete);
    ui_->RenameButton->setEnabled(node.Frame.has_value());
    fillVisibilityBoxes();
    if (!node.AddByKind) {
        ui_->AddButton->setText(QStringLiteral("Add"));
    } else if (node.NodeKind == NodeKind::Frame) {
        ui_->AddButton->setText(QStringLiteral("Add Frame"));
    } else if (node.NodeKind != NodeKind::Mesh && node.NodeKind != NodeKind::MeshNormals) {
        ui_->AddButton->setText(QStringLiteral("Add Material"));
    }
    ui_->AddButton->setAccessibleName(ui_->AddButton->text());
}

void TMDIChild::rebuildTree() {
    const NodeData selected = model_->Selected;
    {
        const QScopedValueRollback<bool> filling(filling_, true);
        structure_->rebuild(*model_);
    }
    model_->Selected = selected;
    followSelection();
    setStatus(counts_, countsText(*model_));
}

void TMDIChild::followSelection() {
    if (model_->Selected.NodeKind != NodeKind::None) {
        const QScopedValueRollback<bool> filling(filling_, true);
        structure_->select(model_->Selected);
        model_->Selected = structure_->nodeData(ui_->TreeView1->currentIndex());
    }
    model_->SelectionCopy = model_->Selected;
    showSelectedButtons();
}

void TMDIChild::selectRoot() {
    model_->selectFrame(FramePath());
    followSelection();
    ui_->TreeView1->expand(ui_->TreeView1->currentIndex());
}

void TMDIChild::startHistory() {
    // a loader for each texture: the files may have changed since the last one
    history_ = EditHistory([this](const std::string& name) {
        return TextureLoader(QFileInfo(model_->FileName).path()).load(name);
    });
}

void TMDIChild::undo() {
    if (mayEdit() && canUndo()) {
        const NodeData before = model_->Selected;
        setMessage(undoneText(history_.undoName()));
        refresh(history_.undo(*model_), before);
    }
}

void TMDIChild::redo() {
    if (mayEdit() && canRedo()) {
        const NodeData before = model_->Selected;
        setMessage(redoneText(history_.redoName()));
        refresh(history_.redo(*model_), before);
    }
}

void TMDIChild::refresh(const RefreshFlags& flags, const NodeData& selectedBefore) {
    if (flags.rebuildTree) {
        rebuildTree();
    } else {
        followSelection();
    }
    if (!model_->Selected.isSameNode(selectedBefore)) {
        structure_->scrollToSelection();
    }
    // also where only the selection moved, which the views mark
    render3d();
}

void TMDIChild::EditButtonClick() {
    switch (model_->Selected.NodeKind) {
    case NodeKind::Frame:
        if (dialogs_.frameOptions != nullptr) {
            editFrameOptions();
        }
        break;
    case NodeKind::MeshMaterialList:
    case NodeKind::MaterialSlot:
    case NodeKind::MaterialTable:
    case NodeKind::TableMaterial:
        if (dialogs_.material != nullptr) {
            editMaterials();
        }
        break;
    default:
        break;
    }
}

void TMDIChild::editFrameOptions() {
    const FramePath path = *model_->Selected.Frame;
    FrameRecord* frame = frameAt(model_->Root, path);
    if (frame == nullptr) {
        return;
    }
    const FrameFlags before = frameFlags(*frame);
    std::uint64_t revision = model_->Revision;
    const bool confirmed = dialogs_.frameOptions->edit(before, [&](const FrameFlags& flags) {
        FrameRecord* edited = model_->Revision == revision ? frameAt(model_->Root, path) : nullptr;
        if (edited != nullptr) {
            setFrameFlags(*edited, flags);
            revision = ++model_->Revision;
        }
    });
    frame = model_->Revision == revision ? frameAt(model_->Root, path) : nullptr;
    if (frame == nullptr || frameFlags(*frame) == before) {
        return;
    }
    if (confirmed) {
        history_.frameOptions(*model_, path, before);
    }
    // what was clicked before Cancel stays in the frame, without an entry; it has to show as well
    rebuildTree();
    render3d();
}

void TMDIChild::RenameButtonClick() {
    if (!model_->Selected.Frame || dialogs_.renameFrame == nullptr) {
        return;
    }
    const FramePath path = *model_->Selected.Frame;
    const FrameRecord* frame = frameAt(model_->Root, path);
    if (frame == nullptr) {
        return;
    }
    const QString shown = shownText(frame->Name);
    // a name that is left alone keeps its bytes, whatever they show as
    const std::string bytes = frame->Name;
    const NameUse use = nameUse(*frame, path.depth() == 0);
    const std::uint64_t revision = model_->Revision;
    const std::optional<QString> name = dialogs_.renameFrame->rename(shown, use);
    if (name && model_->Revision == revision) {
        history_.renameFrame(*model_, path, *name == shown ? bytes : modelText(*name));
    }
    rebuildTree();
}

void TMDIChild::Deletebuttonclick() {
    const NodeData node = model_->Selected;
    switch (node.NodeKind) {
    case NodeKind::Frame:
        history_.deleteFrame(*model_, *node.Frame);
        break;
    case NodeKind::MaterialSlot:
        history_.removeSlot(*model_, *node.Frame, node.ItemIndex);
        break;
    case NodeKind::TableMaterial:
        history_.deleteMaterial(*model_, static_cast<std::size_t>(node.ItemIndex));
        break;
    default:
        return;
    }
    rebuildTree();
    render3d();
}

void TMDIChild::Addbuttonclick() {
    const NodeData node = model_->Selected;
    switch (node.NodeKind) {
    case NodeKind::Frame:
        history_.addFrame(*model_, *node.Frame, "");
        rebuildTree();
        ui_->TreeView1->expand(ui_->TreeView1->currentIndex()); // shows what has been added
        render3d();
        return;
    case NodeKind::MeshMaterialList:
    case NodeKind::MaterialSlot:
        history_.addMeshMaterial(*model_, *node.Frame);
        break;
    case NodeKind::MaterialTable:
    case NodeKind::TableMaterial:
        history_.addMaterial(*model_);
        break;
    default:
        return;
    }
    rebuildTree();
    render3d();
}

} // namespace korvane
