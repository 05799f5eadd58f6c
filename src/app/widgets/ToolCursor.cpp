#include "app/widgets/ToolCursor.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace korvane {

namespace {

/// Returns a picture from the resources as a pointer; `hotSpot` is in fractions of its side.
QCursor pictureCursor(const QString& name, const QPointF& hotSpot) {
    constexpr int side = 24;
    const double ratio = qApp->devicePixelRatio();
    QPixmap picture(QSize(side, side) * ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(QStringLiteral(":/icons/%1.svg").arg(name)).render(&painter);
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return QCursor(picture, qRound(hotSpot.x() * side), qRound(hotSpot.y() * side));
}

} // namespace

QCursor toolCursor(ViewTool tool, bool dragging) {
    switch (tool) {
    case ViewTool::MoveFrame:
        return Qt::SizeAllCursor;
    case ViewTool::MoveView:
        return dragging ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
    case ViewTool::RotateFrame:
        return pictureCursor(QStringLiteral("cursor-rotate"), {0.5, 0.5});
    case ViewTool::MoveObjCoords:
        return Qt::CrossCursor;
    case ViewTool::Zoom:
        break;
    }
    return pictureCursor(QStringLiteral("cursor-zoom"), {0.4, 0.4});
}

} // namespace korvane
