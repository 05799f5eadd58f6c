// The "Structure" page of the document window.

#include "app/widgets/WindowFocus.h"
#include "edit/forms/TMaterial.h"
#include "model/forms/TMDIChild.h"
#include "model/forms/TOKBottomDlg1.h"
#include "model/forms/TStructureView.h"
#include "model/forms/TframeF.h"
#include "ui_TMDIChild.h"

#include <QItemSelection>
#include <QScopedValueRollback>

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
            // a view that loses the keyboard in an inactive window is not told
            cancelDrag();
            // on a button the next Space, meant for the tree, would press it again
            focus_->give(*ui_->TreeView1);
        });
    }
    ui_->DeleteButton->installEventFilter(this);
}

void TMDIChild::ChildSelectedChange(const QItemSelection& selected) {
    if (!session_ || filling_) {
        return;
    }
    const Changes changes = session_->select(structure_->nodeData(selected.indexes().value(0)));
    showSelectedButtons();
    apply(changes);
}

void TMDIChild::showSelectedButtons() {
    const NodeData& node = session_->model().Selected;
    ui_->EditButton->setEnabled(node.CanEdit);
    ui_->AddButton->setEnabled(node.CanAdd);
    ui_->DeleteButton->setEnabled(node.CanDelete);
    ui_->RenameButton->setEnabled(node.Frame.has_value());
    fillVisibilityBoxes();
    if (const std::optional<QString> caption = addCaption(node)) {
        ui_->AddButton->setText(*caption);
        ui_->AddButton->setAccessibleName(*caption);
    }
}

void TMDIChild::followSelection() {
    const NodeData& selected = session_->model().Selected;
    if (selected.NodeKind != NodeKind::None) {
        const QScopedValueRollback<bool> filling(filling_, true);
        structure_->select(selected);
    }
    showSelectedButtons();
}

void TMDIChild::undo() {
    if (mayEdit()) {
        applyStep(session_->undo());
    }
}

void TMDIChild::redo() {
    if (mayEdit()) {
        applyStep(session_->redo());
    }
}

void TMDIChild::paste(const QByteArray& block) {
    if (!mayEdit()) {
        return;
    }
    const PasteOutcome outcome = session_->paste(block);
    apply(outcome.changes);
    if (!outcome.refusal.isEmpty()) {
        showPasteFailure(outcome.refusal);
    }
}

void TMDIChild::EditButtonClick() {
    switch (session_->model().Selected.NodeKind) {
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
    const std::optional<OptionsQuestion> question = session_->optionsQuestion();
    if (!question) {
        return;
    }
    DialogSubject subject = question->subject;
    const bool confirmed = dialogs_.frameOptions->edit(
        question->flags, [&](const FrameFlags& flags) { session_->writeFlags(subject, flags); });
    apply(session_->endOptions(*question, subject, confirmed));
}

void TMDIChild::editMaterials() {
    MaterialEditing* materials = session_->editMaterials();
    if (materials == nullptr) {
        return;
    }
    const auto live = connect(dialogs_.material, &TMaterial::edited, this, &TMDIChild::apply);
    const auto end = [&] {
        disconnect(live);
        apply(session_->endMaterials());
    };
    try {
        dialogs_.material->edit(*materials);
    } catch (...) {
        end();
        throw;
    }
    end();
}

void TMDIChild::RenameButtonClick() {
    const std::optional<RenameQuestion> question = session_->renameQuestion();
    if (!question || dialogs_.renameFrame == nullptr) {
        return;
    }
    if (const auto name = dialogs_.renameFrame->rename(question->shown, question->use)) {
        apply(session_->rename(*question, *name));
    }
}

void TMDIChild::Deletebuttonclick() {
    apply(session_->remove());
}

void TMDIChild::Addbuttonclick() {
    const bool toFrame = session_->model().Selected.NodeKind == NodeKind::Frame;
    apply(session_->add());
    if (toFrame) {
        ui_->TreeView1->expand(ui_->TreeView1->currentIndex()); // shows what has been added
    }
}

} // namespace korvane
