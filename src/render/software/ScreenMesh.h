#pragma once

#include "render/scene/Culling.h"
#include "render/scene/DrawCache.h"
#include "render/software/PolygonFill.h"

#include <array>
#include <cstdint>
#include <vector>

namespace korvane {

/// What one redraw draws with, and into.
struct RasterContext : DrawContext {
    RasterTarget target;
};

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
void projectVertices(const RasterContext& context, const DrawCache& cache, Containment where,
                     std::vector<ScreenVertex>& screen);

} // namespace korvane
