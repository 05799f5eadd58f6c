#pragma once

#include <QList>
#include <QMdiArea>
#include <QRect>

namespace korvane {

/// Divides an area among `count` tiles, which fill it without gaps. Two or three horizontal tiles
/// lie one above the other, vertical ones stand side by side; more make a grid with at least as
/// many rows as columns, or columns as rows.
QList<QRect> tileRects(const QSize& area, int count, Qt::Orientation orientation);

/// Stacks the windows that are not minimised, each a title lower and further right, the active one
/// on top.
void cascadeWindows(QMdiArea& area);
/// Tiles the windows that are not minimised.
void tileWindows(QMdiArea& area, Qt::Orientation orientation);
/// Minimises all windows.
void minimizeWindows(QMdiArea& area);
/// Lines the minimised windows up along the lower edge, from the left, further rows above.
void arrangeMinimized(QMdiArea& area);

} // namespace korvane
