#pragma once

#include <QSize>
#include <QWidget>

namespace korvane {

/// Returns the size of a widget in device pixels of its current screen.
inline QSize sizeInPixels(const QWidget& widget) {
    return (QSizeF(widget.size()) * widget.devicePixelRatioF()).toSize();
}

} // namespace korvane
