#pragma once

#include "render/scene/Camera.h"
#include "render/scene/DrawList.h"
#include "render/scene/ViewGeometry.h"

#include <array>

namespace korvane {

struct Bounds;

/// What one redraw of a 3D view sees with. Everything referred to outlives the redraw.
struct DrawContext {
    const ViewGeometry& geometry;
    const ViewState& state;
    const Camera& camera;
};

/// Whether a point of view space can be drawn: a finite one, not too far away.
bool usablePosition(const Vec3& p);

/// The corners of a box; bit 0, 1 and 2 of a corner's number tell whether its x, y and z are high.
std::array<Vec3, 8> boxCorners(const Bounds& bounds);

/// How a frame's mesh lies to the planes of the view, by its bounds.
enum class Containment { Outside, Crossing, Inside };

/// The frame's drawing cache must be up to date.
Containment containment(const DrawContext& context, const DrawItem& item);

/// The wire colour of a frame by how it stands to the selected one.
BitmapPixel wireColor(const ViewColors& colors, SelectState state);

} // namespace korvane
