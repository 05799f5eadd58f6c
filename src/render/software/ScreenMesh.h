#pragma once

#include "render/scene/Culling.h"
#include "render/scene/DrawCache.h"
#include "render/software/PolygonFill.h"

#include <array>
#include <cstdint>
#include <vector>

namespace korvane {

/// The view and the target of one redraw.
struct RasterContext : DrawContext {
    RasterTarget target;
};

/// The screen position, x and y in subpixels, of a point of view space beyond the near plane.
std::array<std::int32_t, 2> projected(const ViewGeometry& geometry, const Vec3& p);

/// A vertex on the screen.
struct ScreenVertex {
    std::int32_t x; ///< in subpixels; 0 for vertices outside a plane
    std::int32_t y;
    float z;               ///< in view space
    std::uint32_t outside; ///< one bit for each plane that the vertex lies outside
};

/// Projects all vertices of a mesh.
void projectVertices(const RasterContext& context, const DrawCache& cache, Containment where,
                     std::vector<ScreenVertex>& screen);

} // namespace korvane
