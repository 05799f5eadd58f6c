#include "app/widgets/DragFilter.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace korvane {

namespace {

DragInput dragInputOf(const QSinglePointEvent& event, const QWidget& control) {
    const QPointF corner = control.mapTo(control.window(), QPointF());
    // Propagation may have rounded the position in the control to whole units. The position in the
    // window is exact, but synthetic events may lack it.
    QPointF place = corner + event.position();
    const QPointF off = event.scenePosition() - place;
    if (std::abs(off.x()) <= 1.0 && std::abs(off.y()) <= 1.0) {
        place = event.scenePosition();
    }
    const double ratio = control.devicePixelRatioF();
    const DragButton button = event.button() == Qt::LeftButton     ? DragButton::Left
                              : event.button() == Qt::RightButton  ? DragButton::Right
                              : event.button() == Qt::MiddleButton ? DragButton::Middle
                                                                   : DragButton::Other;
    return {button, devicePixel(place.x(), corner.x(), ratio),
            devicePixel(place.y(), corner.y(), ratio)};
}

} // namespace

DragFilter::DragFilter(QWidget& control, Handlers handlers)
    : control_(control), handlers_(std::move(handlers)) {
    control.installEventFilter(this);
}

bool DragFilter::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        mouseEvent(dynamic_cast<const QMouseEvent&>(*event));
        return true;
    case QEvent::Wheel:
        return wheelEvent(dynamic_cast<QWheelEvent&>(*event));
    case QEvent::KeyPress:
        return dynamic_cast<const QKeyEvent&>(*event).key() == Qt::Key_Escape && handlers_.cancel();
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
        handlers_.cancel();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void DragFilter::mouseEvent(const QMouseEvent& event) {
    const DragInput input = dragInputOf(event, control_);
    switch (event.type()) {
    case QEvent::MouseMove:
        if (event.buttons() == Qt::NoButton) {
            handlers_.cancel();
        }
        handlers_.move(input);
        break;
    case QEvent::MouseButtonRelease:
        handlers_.release(input);
        break;
    default:
        if (!handlers_.pick || !event.modifiers().testFlag(Qt::ControlModifier)) {
            handlers_.press(input);
        } else if (input.button == DragButton::Left) {
            handlers_.pick(input);
        }
        break;
    }
}

bool DragFilter::wheelEvent(QWheelEvent& event) {
    if (!handlers_.wheel) {
        return false;
    }
    constexpr float notch = 120.0F; // eighths of a degree
    event.accept();
    handlers_.wheel(dragInputOf(event, control_),
                    static_cast<float>(event.angleDelta().y()) / notch);
    return true;
}

} // namespace korvane
