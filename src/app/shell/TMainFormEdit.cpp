// The "Edit" menu of the main frame, except for the colours.

#include "app/shell/TMainForm.h"
#include "model/forms/TMDIChild.h"
#include "ui_TMainForm.h"

#include <QAction>

#include <optional>

namespace korvane {

void TMainForm::EditUndo1Execute() {
    if (TMDIChild* document = activeDocument()) {
        document->undo();
    }
}

void TMainForm::EditUndo1Update() {
    const TMDIChild* document = activeDocument();
    ui_->EditUndo1->setEnabled(document != nullptr && document->canUndo());
}

void TMainForm::EditRedo1Execute() {
    if (TMDIChild* document = activeDocument()) {
        document->redo();
    }
}

void TMainForm::EditRedo1Update() {
    const TMDIChild* document = activeDocument();
    ui_->EditRedo1->setEnabled(document != nullptr && document->canRedo());
}

// Cut is deliberately never enabled: copying and deleting are two steps.

void TMainForm::EditCutExecute() {}

void TMainForm::EditCutUpdate() {
    ui_->EditCut->setEnabled(false);
}

void TMainForm::EditCopyExecute() {
    TMDIChild* document = activeDocument();
    const QByteArray block = document != nullptr ? document->copy() : QByteArray();
    if (!block.isEmpty()) {
        ModelClipboard::put(block);
    }
}

void TMainForm::EditCopyUpdate() {
    const TMDIChild* document = activeDocument();
    ui_->EditCopy->setEnabled(document != nullptr && document->canCopy());
}

void TMainForm::EditPasteExecute() {
    if (TMDIChild* document = activeDocument()) {
        document->paste(ModelClipboard::block());
    }
}

void TMainForm::EditPasteUpdate() {
    const TMDIChild* document = activeDocument();
    // query the clipboard only if the answer matters
    const bool wanted = document != nullptr && document->canCopy();
    const std::optional<ClipboardContent> content = wanted ? clipboard_.content() : std::nullopt;
    ui_->EditPaste->setEnabled(content.has_value() && document->canPaste(*content));
}

} // namespace korvane
