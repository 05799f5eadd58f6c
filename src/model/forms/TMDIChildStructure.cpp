// The "Structure" page of the document window.

#include "app/widgets/MenuLetters.h"
#include "app/widgets/WindowFocus.h"
#include "edit/forms/TMaterial.h"
#include "model/forms/TMDIChild.h"
#include "model/forms/TOKBottomDlg1.h"
#include "model/forms/TStructureView.h"
#include "model/forms/TframeF.h"
#include "ui_TMDIChild.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
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
            // in an inactive window, a view gets no event when it loses the focus
            cancelDrag();
            // if the focus stayed here, a Space meant for the tree would press the button again
            focus_->give(*ui_->TreeView1);
        });
    }
    ui_->DeleteButton->installEventFilter(this);
}

void TMDIChild::setUpStructureMenu() {
    structureMenu_ = new QMenu(ui_->TreeView1);
    structureMenu_->setObjectName(QStringLiteral("StructureMenu"));
    structureMenu_->setAccessibleName(QStringLiteral("Structure commands"));
    const std::pair<QPushButton*, QList<QKeySequence>> commands[] = {
        {ui_->EditButton, {Qt::Key_Return, Qt::Key_Enter}},
        {ui_->RenameButton, {Qt::Key_F2}},
        {ui_->DeleteButton, {Qt::Key_Delete}},
        {ui_->AddButton, {Qt::Key_Insert}}};
    for (const auto& [button, keys] : commands) {
        QAction* command = structureMenu_->addAction(button->text());
        command->setObjectName(button->objectName() + QStringLiteral("Item"));
        command->setShortcuts(keys);
        connect(command, &QAction::triggered, button, [button = button] { button->click(); });
    }
    structureMenu_->addSeparator();
    actOnFirstLetters(*ui_->TreeView1);
    ui_->TreeView1->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui_->TreeView1, &QTreeView::customContextMenuRequested, this, [this](const QPoint& at) {
        structureMenu_->popup(ui_->TreeView1->viewport()->mapToGlobal(at));
    });
    ui_->TreeView1->viewport()->installEventFilter(this); // for the mouse button of double clicks
    connect(ui_->TreeView1, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& row) { doubleClicked_ = row; });
    // queued: the tree is still handling the press
    connect(ui_->TreeView1, &QTreeView::doubleClicked, this, &TMDIChild::editDoubleClicked,
            Qt::QueuedConnection);
}

void TMDIChild::editDoubleClicked() {
    const QModelIndex row = std::exchange(doubleClicked_, {});
    if (ui_->TreeView1->selectionModel()->isSelected(row) && row.model()->rowCount(row) == 0) {
        ui_->EditButton->click();
    }
}

void TMDIChild::addToStructureMenu(const QList<QAction*>& commands) {
    structureMenu_->addActions(commands);
}

bool TMDIChild::structureKey(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Copy)) {
        // if nothing can be copied, the tree would put the node's text on the clipboard
        return true;
    }
    const QKeySequence pressed(
        QKeyCombination(key.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(key.key())));
    for (QAction* command : structureMenu_->actions()) {
        // the main frame's commands have their own keys
        if (command->parent() == structureMenu_ && command->shortcuts().contains(pressed)) {
            if (!key.isAutoRepeat()) {
                command->trigger();
            }
            return true;
        }
    }
    return false;
}

void TMDIChild::ChildSelectedChange() {
    if (!session_ || filling_) {
        return;
    }
    const QModelIndexList rows = ui_->TreeView1->selectionModel()->selectedIndexes();
    const Changes changes = session_->select(structure_->nodeData(rows.value(0)));
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
    const QPushButton* buttons[] = {ui_->EditButton, ui_->RenameButton, ui_->DeleteButton,
                                    ui_->AddButton};
    for (std::size_t i = 0; i < std::size(buttons); ++i) {
        QAction* command = structureMenu_->actions()[static_cast<qsizetype>(i)];
        command->setText(buttons[i]->text());
        command->setEnabled(buttons[i]->isEnabled());
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
        ui_->TreeView1->expand(ui_->TreeView1->currentIndex()); // shows the new frame
    }
}

} // namespace korvane
