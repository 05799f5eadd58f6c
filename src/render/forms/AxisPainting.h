#pragma once

#include "render/drags/ViewPlane.h"
#include "render/scene/ViewState.h"

#include <QColor>
#include <QSize>

class QPainter;

namespace korvane {

// Both paint over the picture of a view of a size in device pixels, in which the painter works.

/// Letters and arrows at the ends of the two lines of a 2D view.
void paintPlaneAxes(QPainter& painter, const PlaneMapping& mapping, const QSize& size,
                    const PlaneColors& colors);

/// A small cross of the axes in the lower left corner of a 3D view.
void paintAxisCross(QPainter& painter, const CameraAngles& angles, const QSize& size,
                    const QColor& background);

} // namespace korvane
