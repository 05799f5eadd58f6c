#pragma once

#include <QList>
#include <QMdiArea>
#include <QRect>

namespace korvane {

/// Divides an area into `count` tiles without gaps. Two or three horizontal tiles are stacked,
/// vertical ones are side by side. More tiles form a grid: horizontal ones have at least as many
/// rows as columns, vertical ones at least as many columns as rows.
QList<QRect> tileRects(const QSize& area, int count, Qt::Orientation orientation);

/// Stacks the windows that are not minimised, each a title bar lower and further right than the one
/// below it, with the active one on top.
void cascadeWindows(QMdiArea& area);
/// Tiles the windows that are not minimised.
void tileWindows(QMdiArea& area, Qt::Orientation orientation);
/// Minimises all windows.
void minimizeWindows(QMdiArea& area);
/// Lines the minimised windows up along the lower edge, from the left, in as many rows as needed.
void arrangeMinimized(QMdiArea& area);

} // namespace korvane
