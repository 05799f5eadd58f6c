#include "render/TImage.h"

#include <QPainter>

namespace korvane {

TImage::TImage(QWidget* parent) : QWidget(parent) {}

void TImage::showPicture(const QImage& picture) {
    picture_ = picture;
    update();
}

void TImage::setEdged(bool edged) {
    edged_ = edged;
    update();
}

void TImage::paintEvent(QPaintEvent* /*event*/) {
    // a copy shares the memory; the ratio is that of the screen the control is on by now
    QImage picture = picture_;
    picture.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(this);
    painter.drawImage(QPointF(0, 0), picture);
    if (edged_) {
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(rect().topRight(), rect().bottomRight());
        painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    }
}

} // namespace korvane
