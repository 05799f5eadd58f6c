#pragma once

#include <QSize>
#include <QWidget>

namespace korvane {

/// The size of a widget in device pixels, on the screen that it is on by now.
inline QSize sizeInPixels(const QWidget& widget) {
    return (QSizeF(widget.size()) * widget.devicePixelRatioF()).toSize();
}

} // namespace korvane
