#include "render/forms/TImage.h"

#include "app/widgets/DevicePixels.h"

#include <QPainter>
#include <QScopedValueRollback>

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
    if (draw_ && (stale_ || picture_.size() != sizeInPixels(*this))) {
        stale_ = false;
        const QScopedValueRollback<bool> drawing(drawing_, true);
        draw_();
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
