#pragma once

#include "model/document/ModelDocument.h"
#include "render/drags/ViewPlane.h"
#include "render/scene/ViewGeometry.h"
#include "render/scene/ViewState.h"

#include <vector>

namespace korvane {

// Both return the frames that show at a pixel of a view, each once, the likeliest choice first;
// frames of equal rank keep the order of the walk. They bring the drawing caches up to date and
// look at each face once.

/// How far from a line the pointer may be, in device pixels.
inline constexpr double pickReach = 5.0;

/// The frames under a pixel of the 3D view, whichever renderer draws it. In shaded modes they come
/// from near to far: a face counts if it shows its front, or either side where far sides are drawn,
/// unless its opacity is 0. As wireframe they come by the distance of their lines.
std::vector<FramePath> framesInSpace(ModelDocument& document, const ViewState& state,
                                     const ViewGeometry& geometry, float x, float y);

/// The frames whose lines are within reach of a pixel of a 2D view, the nearest first.
std::vector<FramePath> framesInPlane(ModelDocument& document, const PlaneMapping& mapping, float x,
                                     float y);

} // namespace korvane
