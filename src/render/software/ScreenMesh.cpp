#include "render/software/ScreenMesh.h"

#include <algorithm>
#include <cmath>

namespace korvane {

std::array<std::int32_t, 2> projected(const ViewGeometry& geometry, const Vec3& p) {
    const float scale = geometry.f / p.z;
    const auto position = [](float pixels) {
        constexpr float farthest = 4194304.0F;
        const float at = pixels * static_cast<float>(subpixels) + 0.5F;
        return static_cast<std::int32_t>(at > -farthest ? std::min(at, farthest) : -farthest);
    };
    return {position(static_cast<float>(geometry.cx) - p.x * scale),
            position(static_cast<float>(geometry.cy) - p.y * scale)};
}

void projectVertices(const RasterContext& context, const DrawCache& cache, Containment where,
                     std::vector<ScreenVertex>& screen) {
    const std::vector<Vec3>& vertices = cache.WorldVertices;
    const Camera camera = context.camera;
    const ViewGeometry& geometry = context.geometry;
    screen.resize(vertices.size());
    if (where == Containment::Inside) {
        constexpr auto unit = static_cast<float>(subpixels);
        const float f = geometry.f * unit;
        const FloatLanes centre = {static_cast<float>(geometry.cx) * unit + 0.5F,
                                   static_cast<float>(geometry.cy) * unit + 0.5F, 0, 0};
        ScreenVertex* to = screen.data();
        for (const Vec3& vertex : vertices) {
            const FloatLanes view = camera.toViewLanes(vertex);
            const IntLanes at = truncated(centre - view * allLanes(f / view[2]));
            *to++ = {at[0], at[1], view[2], 0};
        }
        return;
    }
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const Vec3 p = camera.toView(vertices[i]);
        ScreenVertex vertex = {0, 0, p.z, 0};
        for (std::size_t k = 0; k < geometry.planes.size(); ++k) {
            vertex.outside |= geometry.planes[k].distance(p) >= 0 ? 0U : 1U << k;
        }
        if (vertex.outside == 0) {
            const auto at = projected(geometry, p);
            vertex.x = at[0];
            vertex.y = at[1];
        }
        screen[i] = vertex;
    }
}

} // namespace korvane
