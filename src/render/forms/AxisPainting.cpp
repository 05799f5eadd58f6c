#include "render/forms/AxisPainting.h"

#include "render/planes/PlaneAxes.h"
#include "render/scene/AxisCross.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

/// Paints axes with a rim of another colour, so that they are visible on any picture.
class AxisPainter {
  public:
    AxisPainter(QPainter& painter, const QColor& ink, const QColor& rim)
        : painter_(painter), ink_(ink), rim_(rim), ratio_(painter.device()->devicePixelRatioF()),
          font_(painter.font()) {
        font_.setBold(true);
        font_.setPixelSize(std::max(1, qRound(QFontInfo(font_).pixelSize() * ratio_)));
        painter.setRenderHint(QPainter::Antialiasing);
    }

    /// Converts device-independent pixels to device pixels.
    [[nodiscard]] double pixels(double units) const { return units * ratio_; }

    void line(const QPointF& from, const QPointF& to) const {
        QPainterPath path(from);
        path.lineTo(to);
        painter_.strokePath(path, QPen(rim_, pixels(3.5)));
        painter_.strokePath(path, QPen(ink_, pixels(1.5)));
    }
    /// Paints an arrowhead; `way` is a unit vector.
    void head(const QPointF& tip, const QPointF& way) const {
        const QPointF back = tip - way * pixels(9);
        const QPointF aside = QPointF(-way.y(), way.x()) * pixels(4);
        QPainterPath path(tip);
        path.lineTo(back + aside);
        path.lineTo(back - aside);
        path.closeSubpath();
        fill(path);
    }
    /// Paints a letter centred at a point.
    void letter(char letter, const QPointF& middle) const {
        const QString text(1, QLatin1Char(letter));
        const QFontMetricsF metrics(font_);
        const QRectF box = metrics.tightBoundingRect(text);
        QPainterPath path;
        path.addText(middle - box.center(), font_, text);
        fill(path);
    }
    /// Returns the distance from the centre of a letter to what it labels.
    [[nodiscard]] double letterRoom() const { return QFontMetricsF(font_).capHeight(); }

  private:
    void fill(const QPainterPath& path) const {
        painter_.strokePath(path, QPen(rim_, pixels(2)));
        painter_.fillPath(path, ink_);
    }

    QPainter& painter_;
    QColor ink_;
    QColor rim_;
    double ratio_;
    QFont font_;
};

} // namespace

void paintPlaneAxes(QPainter& painter, const PlaneMapping& mapping, const QSize& size,
                    const PlaneColors& colors) {
    const AxisPainter axes(painter, QColor::fromRgb(colors.worldAxes),
                           QColor::fromRgb(colors.frames.background));
    for (const auto& axis : planeAxes(mapping, size.width(), size.height())) {
        if (!axis) {
            continue;
        }
        // centred on the line's pixels, clear of the focus mark
        const QPointF way(axis->way.u, -axis->way.v);
        const QPointF tip =
            QPointF(std::round(axis->x) + 0.5, std::round(axis->y) + 0.5) - way * axes.pixels(4);
        axes.head(tip, way);
        const QPointF beside =
            QPointF(std::abs(way.y()), -std::abs(way.x())) * (axes.letterRoom() + axes.pixels(3));
        axes.letter(axis->letter, tip - way * axes.letterRoom() + beside);
    }
}

void paintAxisCross(QPainter& painter, const CameraAngles& angles, const QSize& size,
                    const QColor& background) {
    constexpr int half = 128;
    const bool dark = background.lightness() < half;
    const AxisPainter axes(painter, dark ? Qt::white : Qt::black, dark ? Qt::black : Qt::white);
    const double length = axes.pixels(20);
    const double room = length + 2 * axes.letterRoom();
    const QPointF middle(room, size.height() - room);
    for (const CrossArm& arm : axisCross(angles)) {
        const QPointF way(arm.right, -arm.up);
        axes.line(middle, middle + way * length);
        const double shown = std::hypot(way.x(), way.y());
        if (shown > 0.5) { // seen from its tip, an arrowhead would be misleading
            axes.head(middle + way * (length + axes.pixels(3)), way / shown);
        }
        axes.letter(arm.letter, middle + way * (length + axes.letterRoom()) +
                                    (shown > 0.1 ? QPointF() : QPointF(1, 1) * axes.letterRoom()));
    }
}

} // namespace korvane
