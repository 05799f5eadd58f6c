// The 2D views of the document window and the mouse in them.

#include "app/widgets/DevicePixels.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/ModalCall.h"
#include "app/widgets/PictureLabel.h"
#include "model/forms/TMDIChild.h"
#include "render/forms/TImage.h"
#include "render/scene/StartCamera.h"
#include "ui_TMDIChild.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace korvane {

/// An image control with the plane that it shows and the handlers of its mouse events.
struct TMDIChild::PlaneImage {
    ViewPlane plane;
    TImage* image;
    QWidget* panel;
    QLabel* label;
    void (TMDIChild::*mouseDown)(const DragInput&);
    void (TMDIChild::*mouseMove)(const DragInput&);
    void (TMDIChild::*mouseUp)(const DragInput&);
};

std::array<TMDIChild::PlaneImage, planeCount> TMDIChild::planeImages() const {
    return {{{ViewPlane::XY, ui_->Image2, ui_->Panel6, ui_->XYLabel, &TMDIChild::XYWinMouseDown,
              &TMDIChild::XYWinMouseMove, &TMDIChild::XYWinMouseUp},
             {ViewPlane::XZ, ui_->Image3, ui_->Panel5, ui_->XZLabel, &TMDIChild::XZWinMouseDown,
              &TMDIChild::XZWinMouseMove, &TMDIChild::XZWinMouseUp},
             {ViewPlane::ZY, ui_->Image4, ui_->Panel7, ui_->ZYLabel, &TMDIChild::ZYWinMouseDown,
              &TMDIChild::ZYWinMouseMove, &TMDIChild::ZYWinMouseUp}}};
}

void TMDIChild::setUpViews() {
    for (const PlaneImage& image : planeImages()) {
        const auto forward = [this, plane = image.plane](auto handler) {
            return [this, plane, handler](const DragInput& input) {
                planeInput(plane, handler, input);
            };
        };
        mice_.push_back(std::make_unique<DragFilter>(
            *image.image, DragFilter::Handlers{
                              .press = forward(image.mouseDown),
                              .move = forward(image.mouseMove),
                              .release = forward(image.mouseUp),
                              .cancel = [this] { return cancelDrag(); },
                              .wheel = [this, plane = image.plane](
                                           const DragInput& place,
                                           float notches) { planeWheel(plane, place, notches); }}));
        // the filter installed last runs first: presses that start nothing never reach the drag
        image.image->installEventFilter(this);
        image.image->setEdged(true);
        layOver(*image.label);
    }
    showPlaneColors();
    // what a toggle on the "Tools" page changed shows as soon as the pointer is over the 3D view
    ui_->ThreeDWin->setAttribute(Qt::WA_Hover);
    ui_->ThreeDWin->installEventFilter(this);
    // a press is delivered right after it has made its window the active one
    connect(this, &QMdiSubWindow::aboutToActivate, this,
            [this] { activatedByPress_ = QGuiApplication::mouseButtons() != Qt::NoButton; });
    connect(
        this, &QMdiSubWindow::aboutToActivate, this, [this] { activatedByPress_ = false; },
        Qt::QueuedConnection);
}

void TMDIChild::fillPanel(QWidget& panel, const QColor& color) {
    QPalette palette = panel.palette();
    palette.setColor(QPalette::Window, color);
    panel.setPalette(palette);
    panel.setAutoFillBackground(true);
}

void TMDIChild::setPlaneColors(const PlaneColors& colors) {
    planes_.setColors(colors);
    showPlaneColors();
    if (session_) {
        session_->model().RedrawAll = session_->model().Changed = true;
    }
}

void TMDIChild::showPlaneColors() {
    const QColor paper = QColor::fromRgb(planes_.view(ViewPlane::XY).colors().frames.background);
    for (const PlaneImage& image : planeImages()) {
        fillPanel(*image.panel, paper);
    }
}

void TMDIChild::render3d() {
    if (session_) {
        session_->model().RedrawAll = session_->model().Changed = true;
        redrawStale();
    }
}

void TMDIChild::redrawStale() {
    if (!session_) {
        return;
    }
    if (std::exchange(session_->model().Changed, false)) {
        ui_->ThreeDWin->redraw();
    }
    if (session_->model().RedrawAll && ui_->TwoDVisibleAction->isChecked()) {
        session_->model().RedrawAll = false;
        for (const PlaneImage& image : planeImages()) {
            drawPlane(image);
        }
    }
}

void TMDIChild::drawPlane(const PlaneImage& image) {
    if (!session_ || !image.image->isVisible()) {
        return; // drawn when shown
    }
    const QSize size = sizeInPixels(*image.image);
    PlaneView& view = planes_.view(image.plane);
    if (size != QSize(view.bitmap().width(), view.bitmap().height())) {
        view.resize(size.width(), size.height());
    }
    if (planesPending_ && !size.isEmpty()) {
        planesPending_ = false;
        startPlanes(session_->model(), size.width(), size.height());
    }
    const bool dots = this->view().dots;
    view.draw(session_->model(), dots);
    image.image->showPicture(imageOf(view.bitmap()),
                             view.selectionOverlay(session_->model(), dots));
    // of the picture's colours, which it may have got later than the panel
    setInkFor(*image.label, view.colors().frames.background);
}

bool TMDIChild::startsNothing(const QEvent& event) const {
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseButtonDblClick) {
        return false;
    }
    const auto& press = dynamic_cast<const QMouseEvent&>(event);
    return activatedByPress_ || press.modifiers().testFlag(Qt::ControlModifier);
}

bool TMDIChild::viewEvent(const QObject& watched, const QEvent& event) {
    if (&watched == ui_->ThreeDWin) {
        if (startsNothing(event)) {
            return true;
        }
        if (event.type() == QEvent::HoverMove || event.type() == QEvent::HoverEnter) {
            redrawStale();
        }
        return false;
    }
    const auto images = planeImages();
    const auto found = std::find_if(images.begin(), images.end(), [&](const PlaneImage& image) {
        return &watched == image.image;
    });
    if (found == images.end() || !session_) {
        return false;
    }
    planeEvent(*found, event);
    return startsNothing(event);
}

void TMDIChild::planeEvent(const PlaneImage& image, const QEvent& event) {
    if (event.type() == QEvent::Leave) {
        apply(session_->setPointerText({}));
    } else if (event.type() == QEvent::Resize || event.type() == QEvent::Show) {
        drawPlane(image);
    }
}

void TMDIChild::planeInput(ViewPlane plane, void (TMDIChild::*handler)(const DragInput&),
                           const DragInput& input) {
    if (session_) {
        (this->*handler)(input);
        apply(session_->setPointerText(planes_.statusText(plane, input, session_->model())));
    }
}

void TMDIChild::planeWheel(ViewPlane plane, const DragInput& place, float notches) {
    if (session_) {
        planes_.wheel(plane, place, notches, session_->model());
        redrawStale();
        apply(session_->setPointerText(planes_.statusText(plane, place, session_->model())));
    }
}

void TMDIChild::mouseDown(ViewPlane plane, const DragInput& input) {
    if (ModalCall::running()) {
        return;
    }
    planes_.mouseDown(plane, input, session_->model());
    showDragCursor();
    redrawStale();
}

void TMDIChild::mouseMove(ViewPlane plane, const DragInput& input) {
    planes_.mouseMove(plane, input, session_->model());
    redrawStale();
}

void TMDIChild::mouseUp(ViewPlane plane, const DragInput& input) {
    if (const std::optional<FrameMove> move = planes_.mouseUp(plane, input, session_->model())) {
        apply(session_->recordMove(*move));
    }
    showDragCursor();
    redrawStale();
}

bool TMDIChild::cancelDrag() {
    if (!session_ || !planes_.cancelDrag(session_->model())) {
        return false;
    }
    showDragCursor();
    redrawStale();
    return true;
}

void TMDIChild::XYWinMouseDown(const DragInput& input) {
    mouseDown(ViewPlane::XY, input);
}

void TMDIChild::XYWinMouseMove(const DragInput& input) {
    mouseMove(ViewPlane::XY, input);
}

void TMDIChild::XYWinMouseUp(const DragInput& input) {
    mouseUp(ViewPlane::XY, input);
}

void TMDIChild::XZWinMouseDown(const DragInput& input) {
    mouseDown(ViewPlane::XZ, input);
}

void TMDIChild::XZWinMouseMove(const DragInput& input) {
    mouseMove(ViewPlane::XZ, input);
}

void TMDIChild::XZWinMouseUp(const DragInput& input) {
    mouseUp(ViewPlane::XZ, input);
}

void TMDIChild::ZYWinMouseDown(const DragInput& input) {
    mouseDown(ViewPlane::ZY, input);
}

void TMDIChild::ZYWinMouseMove(const DragInput& input) {
    mouseMove(ViewPlane::ZY, input);
}

void TMDIChild::ZYWinMouseUp(const DragInput& input) {
    mouseUp(ViewPlane::ZY, input);
}

} // namespace korvane
