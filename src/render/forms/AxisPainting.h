#pragma once

#include "render/drags/ViewPlane.h"
#include "render/scene/ViewState.h"

#include <QColor>
#include <QSize>

class QPainter;

namespace korvane {

// Both paint over the picture of a view. `size` and the painter's coordinates are in device pixels.

/// Paints letters and arrowheads at the ends of a 2D view's two axis lines.
void paintPlaneAxes(QPainter& painter, const PlaneMapping& mapping, const QSize& size,
                    const PlaneColors& colors);

/// Paints a small cross of the axes in the lower left corner of a 3D view.
void paintAxisCross(QPainter& painter, const CameraAngles& angles, const QSize& size,
                    const QColor& background);

} // namespace korvane
