#include "render/forms/TImage.h"

#include "app/widgets/DevicePixels.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <exception>

namespace korvane {

TImage::TImage(QWidget* parent) : QWidget(parent) {}

void TImage::showPicture(const QImage& picture, const QImage& overlay) {
    picture_ = picture;
    overlay_ = overlay;
    if (!drawing_) {
        update();
    }
}

void TImage::redraw() {
    stale_ = true;
    update();
}

void TImage::drawIfStale() {
    // the scale of the screen may have changed without a change of the control's size
    const QSize size = sizeInPixels(*this);
    if (!draw_ || (!stale_ && size == drawnSize_)) {
        return;
    }
    stale_ = false;
    drawnSize_ = size;
    picture_ = overlay_ = QImage(); // drawing may free the memory that they show
    const QScopedValueRollback<bool> drawing(drawing_, true);
    try {
        draw_();
    } catch (...) {
        // a paint cannot wait for the user to be told
        picture_ = overlay_ = QImage();
        QMetaObject::invokeMethod(
            this, [error = std::current_exception()] { std::rethrow_exception(error); },
            Qt::QueuedConnection);
    }
}

void TImage::setEdged(bool edged) {
    edged_ = edged;
    update();
}

void TImage::paintEvent(QPaintEvent* /*event*/) {
    drawIfStale();
    QPainter painter(this);
    // copies share the memory; the ratio is that of the screen the control is on by now
    for (QImage layer : {picture_, overlay_}) {
        layer.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(QPointF(0, 0), layer);
    }
    if (edged_) {
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(rect().topRight(), rect().bottomRight());
        painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    }
}

} // namespace korvane
