// The "Edit" menu of the main frame, but for the colors.

#include "app/TMainForm.h"
#include "model/TMDIChild.h"
#include "ui_TMainForm.h"

#include <QAction>

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

// No window exchanges anything with the clipboard yet: there is nothing that these commands could
// do.

void TMainForm::EditCutExecute() {}

void TMainForm::EditCutUpdate() {
    ui_->EditCut->setEnabled(false);
}

void TMainForm::EditCopyExecute() {}

void TMainForm::EditCopyUpdate() {
    ui_->EditCopy->setEnabled(false);
}

void TMainForm::EditPasteExecute() {}

void TMainForm::EditPasteUpdate() {
    ui_->EditPaste->setEnabled(false);
}

} // namespace korvane
