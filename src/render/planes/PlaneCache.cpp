#include "render/planes/PlaneCache.h"

#include <algorithm>

namespace korvane {

const std::vector<MeshEdge>& PlaneCache::edges(const MeshRecord& mesh) {
    if (shapeOfEdges_ != mesh.ListRevision.shape()) {
        shapeOfEdges_ = mesh.ListRevision.shape();
        edges_ = meshEdges(mesh);
    }
    return edges_;
}

bool PlaneCache::project(const PlaneMapping& mapping, const DrawCache& cache) {
    Projection& projection = projections_[static_cast<std::size_t>(mapping.plane)];
    if (projection.mapping == mapping && projection.buildCount == cache.buildCount()) {
        return false;
    }
    projection.mapping = mapping;
    projection.buildCount = cache.buildCount();
    const std::vector<Vec3>& world = cache.WorldVertices;
    projection.points.resize(world.size());
    std::transform(world.begin(), world.end(), projection.points.begin(), [&](const Vec3& vertex) {
        const PlanePoint at = toPlane(mapping.plane, vertex);
        return pixelAt(mapping.screenX(at.u), mapping.screenY(at.v));
    });
    return true;
}

} // namespace korvane
