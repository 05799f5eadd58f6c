#pragma once

#include "render/scene/Camera.h"
#include "render/scene/DrawList.h"
#include "render/scene/ViewGeometry.h"

namespace korvane {

/// The view that one redraw of a 3D view uses. The references must outlive the redraw.
struct DrawContext {
    const ViewGeometry& geometry;
    const ViewState& state;
    const Camera& camera;
};

/// Whether a point of view space can be drawn: finite and not too far away.
bool usablePosition(const Vec3& p);

/// How the bounds of a frame's mesh lie relative to the planes of the view.
enum class Containment { Outside, Crossing, Inside };

/// The frame's drawing cache must be up to date.
Containment containment(const DrawContext& context, const DrawItem& item);

} // namespace korvane
