#include "render/TImage.h"

#include <QPainter>

namespace korvane {

TImage::TImage(QWidget* parent) : QWidget(parent) {}

void TImage::showPicture(const QImage& picture) {
    picture_ = picture;
    update();
}

QSize TImage::sizeInPixels() const {
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

void TImage::paintEvent(QPaintEvent* /*event*/) {
    // a copy shares the memory; the ratio is that of the screen the control is on by now
    QImage picture = picture_;
    picture.setDevicePixelRatio(devicePixelRatioF());
    QPainter(this).drawImage(QPointF(0, 0), picture);
}

} // namespace korvane
