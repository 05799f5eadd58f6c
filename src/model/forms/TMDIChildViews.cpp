// The 2D views of the document window and the mouse in them.

#include "app/widgets/DevicePixels.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/ModalCall.h"
#include "app/widgets/PictureLabel.h"
#include "model/forms/TMDIChild.h"
#include "render/forms/AxisPainting.h"
#include "render/forms/TImage.h"
#include "render/forms/ViewControls.h"
#include "ui_TMDIChild.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>

namespace korvane {

/// An image control with its plane and the handlers of its mouse events.
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
        const auto forward = [this](auto handler) {
            return [this, handler](const DragInput& input) { (this->*handler)(input); };
        };
        mice_.push_back(std::make_unique<DragFilter>(
            *image.image,
            DragFilter::Handlers{
                .press = forward(image.mouseDown),
                .move = forward(image.mouseMove),
                .release = forward(image.mouseUp),
                .cancel = [this] { return cancelDrag(); },
                .wheel =
                    [this, plane = image.plane](const DragInput& place, float notches) {
                        if (session_) {
                            apply(session_->wheelPlane(inputOf(plane, place), notches));
                        }
                    },
                .pick =
                    [this, plane = image.plane](const DragInput& place) {
                        if (session_) {
                            applyStep(session_->pickPlane(inputOf(plane, place)));
                        }
                    }}));
        setUpKeys(image);
        image.image->setDrawing([this, image] { drawPlane(image); });
        image.image->setMarks([this, plane = image.plane](QPainter& painter) {
            if (session_) {
                const PlaneView& view = planeView(plane);
                paintPlaneAxes(painter, view.mapping(session_->model()),
                               {view.bitmap().width(), view.bitmap().height()}, view.colors());
            }
        });
        // the filter installed last runs first: presses that start nothing must not reach the drag
        image.image->installEventFilter(this);
        image.image->setEdged(true);
        layOver(*image.label);
    }
    showPlaneColors();
    // changes by toggles of the "Tools" page become visible when the pointer enters the 3D view
    ui_->ThreeDWin->setAttribute(Qt::WA_Hover);
    ui_->ThreeDWin->installEventFilter(this);
    connect(ui_->ThreeDWin, &TThreeDWinFrame::changed, this, &TMDIChild::applyStep);
    // a press first activates its window and is then delivered
    connect(this, &QMdiSubWindow::aboutToActivate, this,
            [this] { activatedByPress_ = QGuiApplication::mouseButtons() != Qt::NoButton; });
    connect(
        this, &QMdiSubWindow::aboutToActivate, this, [this] { activatedByPress_ = false; },
        Qt::QueuedConnection);
}

void TMDIChild::setUpKeys(const PlaneImage& image) {
    new ViewControls(
        *image.image, *image.image,
        {.key =
             [this, plane = image.plane](ViewKey key) {
                 if (session_) {
                     apply(session_->keyPlane(inputOf(plane, {}), key));
                 }
             },
         .leave =
             [this] {
                 if (session_) {
                     session_->endKeys();
                 }
             },
         .pictureName =
             [this, label = image.label] {
                 return session_ ? pictureName(session_->model().FileName, label->text().toLower())
                                 : QString();
             },
         .sentence =
             [this, plane = image.plane] {
                 return session_ ? session_->describePlane(inputOf(plane, {})) : QString();
             }});
}

bool TMDIChild::toolKey(const QKeyEvent& event) {
    // on some keyboards the digits need Shift
    const auto held = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (held != Qt::NoModifier || event.key() < Qt::Key_1 || event.key() > Qt::Key_5 ||
        ModalCall::running()) {
        return false;
    }
    QAction* const tools[] = {ui_->zoom, ui_->moveFrame, ui_->moveView, ui_->rotateFrame,
                              ui_->MoveObjCoords};
    tools[event.key() - Qt::Key_1]->trigger();
    return true;
}

void TMDIChild::fillPanel(QWidget& panel, const QColor& color) {
    QPalette palette = panel.palette();
    palette.setColor(QPalette::Window, color);
    panel.setPalette(palette);
    panel.setAutoFillBackground(true);
}

void TMDIChild::showPlaneColors() {
    const QColor paper = QColor::fromRgb(session_->planeColors().frames.background);
    for (const PlaneImage& image : planeImages()) {
        fillPanel(*image.panel, paper);
    }
}

void TMDIChild::render3d() {
    if (session_) {
        session_->takeOverdue(); // everything is redrawn now
        ui_->ThreeDWin->redraw();
        drawPlanes();
    }
}

void TMDIChild::drawPlanes() {
    for (const PlaneImage& image : planeImages()) {
        placePlanes(*image.image);
        image.image->redraw();
    }
}

void TMDIChild::placePlanes(const QWidget& image) {
    const QSize size = sizeInPixels(image);
    if (image.isVisible() && !size.isEmpty()) {
        session_->placePlanes(size.width(), size.height());
    }
}

void TMDIChild::drawPlane(const PlaneImage& image) {
    if (!session_) {
        return;
    }
    const QSize size = sizeInPixels(*image.image);
    PlaneView& view = planeView(image.plane);
    if (size != QSize(view.bitmap().width(), view.bitmap().height())) {
        view.resize(size.width(), size.height());
    }
    const bool dots = this->view().dots;
    view.setColors(session_->planeColors());
    view.draw(session_->model(), dots);
    image.image->showPicture(imageOf(view.bitmap()),
                             view.selectionOverlay(session_->model(), dots));
    // from the picture's colours, which change later than those of the panel
    setInkFor(*image.label, view.colors().frames.background);
}

bool TMDIChild::startsNothing(const QEvent& event) const {
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseButtonDblClick) {
        return false;
    }
    return activatedByPress_ || ModalCall::running();
}

bool TMDIChild::viewEvent(const QObject& watched, const QEvent& event) {
    if (&watched == ui_->ThreeDWin) {
        if (startsNothing(event)) {
            return true;
        }
        if (event.type() == QEvent::HoverMove || event.type() == QEvent::HoverEnter) {
            apply(session_ ? session_->takeOverdue() : Changes());
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
    if (event.type() == QEvent::Leave) {
        apply(session_->leavePlane());
    } else if (event.type() == QEvent::Resize || event.type() == QEvent::Show) {
        placePlanes(*found->image);
    }
    return startsNothing(event);
}

PlaneInput TMDIChild::inputOf(ViewPlane plane, const DragInput& input) {
    const QSize size = sizeInPixels(*planeImages()[static_cast<std::size_t>(plane)].image);
    return {plane, size.width(), size.height(), input};
}

void TMDIChild::planeInput(ViewPlane plane, const DragInput& input, PlaneOperation operation) {
    if (!session_) {
        return;
    }
    const bool dragging = session_->draggingPlane();
    apply(((*session_).*operation)(inputOf(plane, input)));
    if (session_->draggingPlane() != dragging) {
        showToolCursor();
    }
}

bool TMDIChild::cancelDrag() {
    if (!session_ || !session_->draggingPlane()) {
        return false;
    }
    apply(session_->cancelPlaneDrag());
    showToolCursor();
    return true;
}

void TMDIChild::XYWinMouseDown(const DragInput& input) {
    planeInput(ViewPlane::XY, input, &DocumentSession::pressPlane);
}

void TMDIChild::XYWinMouseMove(const DragInput& input) {
    planeInput(ViewPlane::XY, input, &DocumentSession::movePlane);
}

void TMDIChild::XYWinMouseUp(const DragInput& input) {
    planeInput(ViewPlane::XY, input, &DocumentSession::releasePlane);
}

void TMDIChild::XZWinMouseDown(const DragInput& input) {
    planeInput(ViewPlane::XZ, input, &DocumentSession::pressPlane);
}

void TMDIChild::XZWinMouseMove(const DragInput& input) {
    planeInput(ViewPlane::XZ, input, &DocumentSession::movePlane);
}

void TMDIChild::XZWinMouseUp(const DragInput& input) {
    planeInput(ViewPlane::XZ, input, &DocumentSession::releasePlane);
}

void TMDIChild::ZYWinMouseDown(const DragInput& input) {
    planeInput(ViewPlane::ZY, input, &DocumentSession::pressPlane);
}

void TMDIChild::ZYWinMouseMove(const DragInput& input) {
    planeInput(ViewPlane::ZY, input, &DocumentSession::movePlane);
}

void TMDIChild::ZYWinMouseUp(const DragInput& input) {
    planeInput(ViewPlane::ZY, input, &DocumentSession::releasePlane);
}

} // namespace korvane
