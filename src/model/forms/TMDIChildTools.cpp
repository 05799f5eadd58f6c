// The "Tools" page of the document window.

#include "app/widgets/ToolCursor.h"
#include "model/forms/TMDIChild.h"
#include "model/forms/TStructureView.h"
#include "render/forms/TImage.h"
#include "ui_TMDIChild.h"

#include <QActionGroup>

namespace korvane {

namespace {

/// Has the button show the action's state and trigger it.
void bind(QAbstractButton& button, QAction& action) {
    QObject::connect(&action, &QAction::changed, &button, [&] {
        button.setEnabled(action.isEnabled());
        button.setChecked(action.isChecked());
    });
    QObject::connect(&button, &QAbstractButton::toggled, &action, [&](bool on) {
        if (on != action.isChecked() && (on || !button.autoExclusive())) {
            action.trigger();
        }
    });
}

} // namespace

void TMDIChild::setUpTools() {
    const std::tuple<QAction*, QAbstractButton*, ViewTool> tools[] = {
        {ui_->zoom, ui_->zoomButton, ViewTool::Zoom},
        {ui_->moveFrame, ui_->moveFrameButton, ViewTool::MoveFrame},
        {ui_->moveView, ui_->moveViewButton, ViewTool::MoveView},
        {ui_->rotateFrame, ui_->rotateFrameButton, ViewTool::RotateFrame},
        {ui_->MoveObjCoords, ui_->MoveObjCoordsButton, ViewTool::MoveObjCoords}};
    auto* group = new QActionGroup(this);
    for (const auto& [action, button, tool] : tools) {
        group->addAction(action);
        bind(*button, *action);
        connect(action, &QAction::triggered, this, [this, tool = tool] { toolExecute(tool); });
    }
    bind(*ui_->FrameVisibleBox, *ui_->FrameVisibleAction);
    bind(*ui_->MeshVisibleBox, *ui_->MeshVisibleAction);
    bind(*ui_->TwoDVisibleBox, *ui_->TwoDVisibleAction);
    // an action toggles its checked state before it emits triggered()
    connect(ui_->FrameVisibleAction, &QAction::triggered, this, &TMDIChild::FrameVisibleExecute);
    connect(ui_->MeshVisibleAction, &QAction::triggered, this, &TMDIChild::MeshVisibleExecute);
    connect(ui_->TwoDVisibleAction, &QAction::triggered, this, &TMDIChild::TwoDVisibleExecute);
    showToolCursor();
}

void TMDIChild::toolExecute(ViewTool tool) {
    if (session_) {
        apply(session_->setTool(tool));
    }
    showToolCursor();
}

void TMDIChild::showToolCursor() {
    const QCursor cursor = toolCursor(session_ ? session_->model().Tool : ViewTool::Zoom,
                                      session_ && session_->draggingPlane());
    for (QWidget* image : {ui_->Image2, ui_->Image3, ui_->Image4}) {
        image->setCursor(cursor);
    }
}

void TMDIChild::fillVisibilityBoxes() {
    const FrameRecord* frame = session_ ? session_->model().selectedFrame() : nullptr;
    ui_->FrameVisibleAction->setEnabled(frame != nullptr);
    ui_->MeshVisibleAction->setEnabled(frame != nullptr && frame->ViewFlags[0]);
    if (frame != nullptr) {
        ui_->FrameVisibleAction->setChecked(frame->ViewFlags[0]);
        ui_->MeshVisibleAction->setChecked(frame->ViewFlags[2]);
    }
}

void TMDIChild::FrameVisibleExecute() {
    if (session_) {
        session_->setFrameVisible(ui_->FrameVisibleAction->isChecked());
        fillVisibilityBoxes();
    }
}

void TMDIChild::MeshVisibleExecute() {
    if (session_) {
        session_->setMeshVisible(ui_->MeshVisibleAction->isChecked());
    }
}

void TMDIChild::TwoDVisibleExecute() {
    const bool visible = ui_->TwoDVisibleAction->isChecked();
    for (QWidget* panel : {ui_->Panel5, ui_->Panel6, ui_->Panel7}) {
        panel->setVisible(visible);
    }
    FormResize();
}

} // namespace korvane
