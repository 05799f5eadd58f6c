#pragma once

#include "render/scene/Camera.h"
#include "render/scene/DrawList.h"
#include "render/scene/ViewGeometry.h"

namespace korvane {

/// What one redraw of a 3D view sees with. Everything referred to outlives the redraw.
struct DrawContext {
    const ViewGeometry& geometry;
    const ViewState& state;
    const Camera& camera;
};

/// Whether a point of view space can be drawn: a finite one, not too far away.
bool usablePosition(const Vec3& p);

/// How a frame's mesh lies to the planes of the view, by its bounds.
enum class Containment { Outside, Crossing, Inside };

/// The frame's drawing cache must be up to date.
Containment containment(const DrawContext& context, const DrawItem& item);

} // namespace korvane
