#pragma once

#include "render/Camera.h"
#include "render/DrawList.h"
#include "render/PolygonFill.h"
#include "render/ViewGeometry.h"

#include <array>
#include <cstdint>
#include <vector>

namespace korvane {

/// What one redraw draws with. Everything referred to outlives the redraw.
struct DrawContext {
    RasterTarget target;
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

/// The frame's cache must be up to date.
Containment containment(const DrawContext& context, const DrawItem& item);

/// Where a point of view space in front of the near plane lies on the screen, in subpixels: x and
/// y.
std::array<std::int32_t, 2> projected(const ViewGeometry& geometry, const Vec3& p);

/// A vertex on the screen.
struct ScreenVertex {
    std::int32_t x; ///< in subpixels; not set for vertices beyond a plane
    std::int32_t y;
    float z;               ///< in view space
    std::uint32_t outside; ///< one bit for each plane that the vertex is beyond
};

/// Projects all vertices of a mesh.
void projectVertices(const DrawContext& context, const DrawCache& cache, Containment where,
                     std::vector<ScreenVertex>& screen);

} // namespace korvane
