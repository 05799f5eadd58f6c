#include "app/MouseEvents.h"

#include <cmath>

namespace korvane {

DragInput dragInputOf(const QSinglePointEvent& event, const QWidget& control) {
    const QPointF corner = control.mapTo(control.window(), QPointF());
    // on its way to a control the place in it may have been rounded to whole units; that in the
    // window was not, but events made for the control alone know of none
    QPointF place = corner + event.position();
    const QPointF off = event.scenePosition() - place;
    if (std::abs(off.x()) <= 1.0 && std::abs(off.y()) <= 1.0) {
        place = event.scenePosition();
    }
    const double ratio = control.devicePixelRatioF();
    const DragButton button = event.button() == Qt::LeftButton    ? DragButton::Left
                              : event.button() == Qt::RightButton ? DragButton::Right
                                                                  : DragButton::Other;
    return {button, devicePixel(place.x(), corner.x(), ratio),
            devicePixel(place.y(), corner.y(), ratio)};
}

float wheelNotches(const QWheelEvent& event) {
    constexpr float notch = 120.0F; // eighths of a degree
    return static_cast<float>(event.angleDelta().y()) / notch;
}

} // namespace korvane
