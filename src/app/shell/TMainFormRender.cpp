// The main frame's commands for how the 3D view is drawn.

#include "app/shell/EditorForms.h"
#include "app/shell/TMainForm.h"
#include "app/widgets/ModalCall.h"
#include "model/forms/TMDIChild.h"
#include "ui_TMainForm.h"

#include <QAction>

namespace korvane {

void TMainForm::ColorOptionsActionExecute() {
    if (execModal(forms_.colorOptions) != QDialog::Accepted) {
        return;
    }
    for (TMDIChild* document : documents()) {
        document->setColors(forms_.colorOptions.viewColors(), forms_.colorOptions.planeColors());
    }
    if (TMDIChild* document = activeDocument()) {
        document->render3d();
    }
}

void TMainForm::setRenderMode(QAction& action, RenderMode mode) {
    TMDIChild* const document = activeDocument();
    if (action.isChecked() || document == nullptr) {
        return;
    }
    for (QAction* other : {ui_->Rwire, ui_->Rflat, ui_->Rfull}) {
        other->setChecked(other == &action);
    }
    document->setRenderMode(mode);
}

void TMainForm::ChildWire() {
    setRenderMode(*ui_->Rwire, RenderMode::Wireframe);
}

void TMainForm::ChildFlat() {
    setRenderMode(*ui_->Rflat, RenderMode::FlatShading);
}

void TMainForm::ChildFull() {
    setRenderMode(*ui_->Rfull, RenderMode::SmoothShading);
}

void TMainForm::Rupdate() {
    switch (activeDocument()->view().mode) {
    case RenderMode::Wireframe:
        ChildWire();
        break;
    case RenderMode::FlatShading:
        ChildFlat();
        break;
    case RenderMode::SmoothShading:
        ChildFull();
        break;
    }
}

void TMainForm::updateRenderMode(QAction& action) {
    const bool open = activeDocument() != nullptr;
    if (open) {
        Rupdate();
    }
    action.setEnabled(open);
}

void TMainForm::wireupdate() {
    updateRenderMode(*ui_->Rwire);
}

void TMainForm::Flatupdate() {
    updateRenderMode(*ui_->Rflat);
}

void TMainForm::Fullupdate() {
    updateRenderMode(*ui_->Rfull);
}

void TMainForm::toggleSetting(QAction& action, bool ViewState::*setting) {
    if (TMDIChild* document = activeDocument()) {
        action.setChecked(!action.isChecked());
        document->setViewSetting(setting, action.isChecked());
    }
}

void TMainForm::updateSetting(QAction& action, bool ViewState::*setting) {
    TMDIChild* const document = activeDocument();
    if (document != nullptr) {
        action.setChecked(document->view().*setting);
    }
    action.setEnabled(document != nullptr);
}

void TMainForm::ChildDots() {
    toggleSetting(*ui_->Rdots, &ViewState::dots);
}

void TMainForm::dotsupdate() {
    updateSetting(*ui_->Rdots, &ViewState::dots);
}

void TMainForm::ChildTrans() {
    toggleSetting(*ui_->Rallowtrans, &ViewState::allowTransparent);
}

void TMainForm::allowupdate() {
    updateSetting(*ui_->Rallowtrans, &ViewState::allowTransparent);
}

void TMainForm::ChildBackwards() {
    toggleSetting(*ui_->Rbackwards, &ViewState::showHiddenTransparent);
}

void TMainForm::backwardsupdate() {
    updateSetting(*ui_->Rbackwards, &ViewState::showHiddenTransparent);
}

void TMainForm::setDrawingInterface(DrawApi api) {
    TMDIChild* const document = activeDocument();
    if (document != nullptr && document->view().api != api) {
        document->setDrawingInterface(api);
    }
}

void TMainForm::updateDrawingInterface(QAction& action, DrawApi api) {
    TMDIChild* const document = activeDocument();
    action.setChecked(document != nullptr && document->view().api == api);
}

void TMainForm::SoftwareExecute() {
    setDrawingInterface(DrawApi::Software);
}

void TMainForm::SoftwareUpdate() {
    updateDrawingInterface(*ui_->SoftwareAction, DrawApi::Software);
}

void TMainForm::OpenGLExecute() {
    setDrawingInterface(DrawApi::OpenGL);
}

void TMainForm::OpenGLUpdate() {
    updateDrawingInterface(*ui_->OpenGLAction, DrawApi::OpenGL);
}

void TMainForm::D3DExecute() {
    setDrawingInterface(DrawApi::Direct3D);
}

void TMainForm::D3DUpdate() {
    updateDrawingInterface(*ui_->D3DAction, DrawApi::Direct3D);
}

} // namespace korvane
