#include "render/forms/TImage.h"

#include "app/widgets/DevicePixels.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <exception>
#include <utility>

namespace korvane {

TImage::TImage(QWidget* parent) : PictureWidget(parent) {}

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
    // the screen's scale factor can change while the control's size does not
    const QSize size = sizeInPixels(*this);
    if (!draw_ || (!stale_ && size == drawnSize_)) {
        return;
    }
    stale_ = false;
    drawnSize_ = size;
    picture_ = overlay_ = QImage(); // drawing may free their memory
    const QScopedValueRollback<bool> drawing(drawing_, true);
    try {
        draw_();
    } catch (...) {
        // later: the user cannot be told during a paint
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

void TImage::setFocusMark(bool marked) {
    focusMark_ = marked;
    update();
}

void TImage::paintMarks(QPainter& painter) {
    if (marks_ && !picture_.isNull()) {
        const double unit = 1 / devicePixelRatioF();
        painter.save();
        painter.scale(unit, unit);
        marks_(painter);
        painter.restore();
    }
}

void TImage::paintFocusMark(QPainter& painter) const {
    // in two colours: one of them is visible on any picture
    const QColor mark = palette().color(QPalette::Highlight);
    const QColor rim = palette().color(QPalette::HighlightedText);
    for (const auto& [inset, color] : {std::pair(0, mark), std::pair(1, mark), std::pair(2, rim)}) {
        painter.setPen(color);
        painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
    }
}

void TImage::paintEvent(QPaintEvent* /*event*/) {
    drawIfStale();
    QPainter painter(this);
    // copies share the memory, but have the ratio of the current screen
    for (QImage layer : {picture_, overlay_}) {
        layer.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(QPointF(0, 0), layer);
    }
    paintMarks(painter);
    if (edged_) {
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(rect().topRight(), rect().bottomRight());
        painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    }
    if (focusMark_) {
        paintFocusMark(painter);
    }
}

} // namespace korvane
