#include "render/scene/Culling.h"

#include "render/scene/DrawCache.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvane {

bool usablePosition(const Vec3& p) {
    // larger numbers would overflow single precision while clipping
    constexpr float limit = 1e15F;
    return std::abs(p.x) < limit && std::abs(p.y) < limit && std::abs(p.z) < limit;
}

Containment containment(const DrawContext& context, const DrawItem& item) {
    const DrawCache& cache = drawCache(*item.frame);
    if (cache.bounds().empty) {
        return Containment::Outside;
    }
    std::array<Vec3, 8> corners = boxCorners(cache.bounds());
    float size = 0.0F;
    for (Vec3& corner : corners) {
        corner = VectorMatrix(corner, item.world);
        size = std::max(size, context.camera.magnitude(corner));
        corner = context.camera.toView(corner);
        if (!usablePosition(corner)) {
            return Containment::Crossing;
        }
        size = std::max({size, std::abs(corner.x), std::abs(corner.y), std::abs(corner.z)});
    }
    const float margin = size * 1e-5F; // well above the rounding error of a vertex in the box
    bool inside = cache.allFinite();
    for (const ClipPlane& plane : context.geometry.planes) {
        float least = std::numeric_limits<float>::max();
        float most = std::numeric_limits<float>::lowest();
        for (const Vec3& corner : corners) {
            const float distance = plane.distance(corner);
            least = std::min(least, distance);
            most = std::max(most, distance);
        }
        if (most < -margin) {
            return Containment::Outside;
        }
        inside = inside && least > margin;
    }
    return inside ? Containment::Inside : Containment::Crossing;
}

} // namespace korvane
