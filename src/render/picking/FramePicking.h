#pragma once

#include "model/document/ModelDocument.h"
#include "render/drags/ViewPlane.h"
#include "render/scene/ViewGeometry.h"
#include "render/scene/ViewState.h"

#include <vector>

namespace korvane {

// Both name the frames that show at a pixel of a view, each frame once, the one that is meant most
// likely first; frames of equal rank come in the order of the walk. They bring the drawing caches
// up to date and look at each face once.

/// How far from a line the pointer may be, in device pixels.
inline constexpr double pickReach = 5.0;

/// The frames under a pixel of the 3D view, whatever draws it. Shaded, they go from near to far: of
/// each frame the faces count that show their front there, or either side where far sides are
/// drawn, unless their opacity is 0. As wires they go by how near their lines are.
std::vector<FramePath> framesInSpace(ModelDocument& document, const ViewState& state,
                                     const ViewGeometry& geometry, float x, float y);

/// The frames whose lines are in reach of a pixel of a 2D view, the nearest first.
std::vector<FramePath> framesInPlane(ModelDocument& document, const PlaneMapping& mapping, float x,
                                     float y);

} // namespace korvane
