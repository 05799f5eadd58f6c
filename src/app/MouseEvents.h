#pragma once

#include "render/DragInput.h"

#include <QSinglePointEvent>
#include <QWheelEvent>
#include <QWidget>

namespace korvane {

/// The device pixel of a control that a mouse event is at, and its button.
DragInput dragInputOf(const QSinglePointEvent& event, const QWidget& control);

/// How far the wheel turned, in notches; forward is positive.
float wheelNotches(const QWheelEvent& event);

} // namespace korvane
