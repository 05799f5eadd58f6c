#include "render/PlaneCache.h"

#include "model/MeshRecord.h"

#include <algorithm>

namespace korvane {

const std::vector<MeshEdge>& PlaneCache::edges(const MeshRecord& mesh) {
    if (!edges_) {
        edges_ = meshEdges(mesh);
    }
    return *edges_;
}

bool PlaneCache::project(const PlaneMapping& mapping, std::span<const Vec3> world) {
    Projection& projection = projections_[static_cast<std::size_t>(mapping.plane)];
    if (projection.mapping == mapping) {
        return false;
    }
    projection.mapping = mapping;
    projection.points.resize(world.size());
    std::transform(world.begin(), world.end(), projection.points.begin(), [&](const Vec3& vertex) {
        const PlanePoint at = toPlane(mapping.plane, vertex);
        return pixelAt(mapping.screenX(at.u), mapping.screenY(at.v));
    });
    return true;
}

void PlaneCache::forgetPoints() {
    for (Projection& projection : projections_) {
        projection.mapping.reset();
    }
}

} // namespace korvane
