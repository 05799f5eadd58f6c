#include "app/shell/MdiArrange.h"

#include <QMdiSubWindow>
#include <QStyle>

#include <algorithm>

namespace korvane {

namespace {

QList<QMdiSubWindow*> windows(const QMdiArea& area, bool minimized) {
    QList<QMdiSubWindow*> found;
    for (QMdiSubWindow* window : area.subWindowList(QMdiArea::CreationOrder)) {
        if (!window->isHidden() && window->isMinimized() == minimized) {
            found.push_back(window);
        }
    }
    return found;
}

} // namespace

QList<QRect> tileRects(const QSize& area, int count, Qt::Orientation orientation) {
    // a line is a column of horizontal tiles, or a row of vertical ones
    int lines = 1;
    while ((lines + 1) * (lines + 1) <= count) {
        ++lines;
    }
    const bool horizontal = orientation == Qt::Horizontal;
    const int across = horizontal ? area.width() : area.height();
    const int along = horizontal ? area.height() : area.width();
    QList<QRect> tiles;
    for (int line = 0; line < lines; ++line) {
        const int inLine = count / lines + (line >= lines - count % lines ? 1 : 0);
        const int start = across * line / lines;
        const int breadth = across * (line + 1) / lines - start;
        for (int i = 0; i < inLine; ++i) {
            const int offset = along * i / inLine;
            const int length = along * (i + 1) / inLine - offset;
            tiles += horizontal ? QRect(start, offset, breadth, length)
                                : QRect(offset, start, length, breadth);
        }
    }
    return tiles;
}

void cascadeWindows(QMdiArea& area) {
    QList<QMdiSubWindow*> open = windows(area, false);
    QMdiSubWindow* const active = area.currentSubWindow();
    if (open.removeOne(active)) {
        open.push_back(active);
    }
    const QSize space = area.viewport()->size();
    const QSize size = space * 3 / 4;
    const int step = area.style()->pixelMetric(QStyle::PM_TitleBarHeight) + 4;
    const int inStack = std::max((space.height() - size.height()) / step, 1);
    int place = 0;
    for (QMdiSubWindow* window : open) {
        window->showNormal(); // a maximised window cannot be placed
        window->setGeometry({QPoint(place * step, place * step), size});
        window->raise();
        place = (place + 1) % inStack;
    }
    area.setActiveSubWindow(active);
}

void tileWindows(QMdiArea& area, Qt::Orientation orientation) {
    const QList<QMdiSubWindow*> open = windows(area, false);
    QMdiSubWindow* const active = area.currentSubWindow();
    for (QMdiSubWindow* window : open) {
        window->showNormal();
    }
    const QList<QRect> tiles =
        tileRects(area.viewport()->size(), static_cast<int>(open.size()), orientation);
    for (qsizetype i = 0; i < tiles.size(); ++i) {
        open[i]->setGeometry(tiles[i]);
    }
    area.setActiveSubWindow(active);
}

void minimizeWindows(QMdiArea& area) {
    for (QMdiSubWindow* window : windows(area, false)) {
        window->showMinimized();
    }
    arrangeMinimized(area);
}

void arrangeMinimized(QMdiArea& area) {
    const QSize size = area.viewport()->size();
    QPoint next(0, size.height());
    for (QMdiSubWindow* window : windows(area, true)) {
        if (next.x() > 0 && next.x() + window->width() > size.width()) {
            next = QPoint(0, next.y() - window->height());
        }
        window->move(next.x(), std::max(next.y() - window->height(), 0));
        next.rx() += window->width();
    }
}

} // namespace korvane
