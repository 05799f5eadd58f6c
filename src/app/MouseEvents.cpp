#include "app/MouseEvents.h"

#include <cmath>

namespace korvane {

DragInput dragInputOf(const QSinglePointEvent& event, const QWidget& control) {
    const QPointF at = event.position() * control.devicePixelRatioF();
    const DragButton button = event.button() == Qt::LeftButton    ? DragButton::Left
                              : event.button() == Qt::RightButton ? DragButton::Right
                                                                  : DragButton::Other;
    return {button, static_cast<float>(std::floor(at.x())), static_cast<float>(std::floor(at.y()))};
}

float wheelNotches(const QWheelEvent& event) {
    constexpr float notch = 120.0F; // eighths of a degree
    return static_cast<float>(event.angleDelta().y()) / notch;
}

} // namespace korvane
