#include "render/StartCamera.h"

#include "render/DrawList.h"

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

double squaredDistance(const Vec3& a, const Vec3& b) {
    const double x = double{a.x} - b.x;
    const double y = double{a.y} - b.y;
    const double z = double{a.z} - b.z;
    return x * x + y * y + z * z;
}

/// From how far a ball of radius 1 is seen whole.
double fitDistance(const ViewGeometry& geometry) {
    const int shorter = std::max(std::min(geometry.cx, geometry.cy), 1);
    return 1.0 / std::sin(std::atan2(double(shorter), double{geometry.f}));
}

} // namespace

void startCamera(ModelDocument& document, const ViewGeometry& geometry) {
    DrawList list;
    list.rebuild(document.Root);
    Bounds bounds;
    for (const DrawItem& item : list.items()) {
        if (item.frame->HasMesh) {
            item.frame->Cache.refresh(item.frame->Mesh, item.world);
            for (const Vec3& vertex : item.frame->Cache.WorldVertices) {
                bounds.add(vertex);
            }
        }
    }
    if (bounds.empty) {
        document.CameraCenter = Vec3();
        document.CameraDistance = ModelDocument().CameraDistance;
        return;
    }
    // halved one by one: the sum may be out of range
    const Vec3 centre = {bounds.low.x / 2 + bounds.high.x / 2, bounds.low.y / 2 + bounds.high.y / 2,
                         bounds.low.z / 2 + bounds.high.z / 2};
    double squaredRadius = 0.0;
    for (const DrawItem& item : list.items()) {
        if (!item.frame->HasMesh) {
            continue;
        }
        for (const Vec3& vertex : item.frame->Cache.WorldVertices) {
            const double squared = squaredDistance(vertex, centre);
            squaredRadius =
                std::isfinite(squared) ? std::max(squaredRadius, squared) : squaredRadius;
        }
    }
    const double radius = std::sqrt(squaredRadius);
    double distance =
        std::max(radius * fitDistance(geometry), radius + double{ViewGeometry::nearZ});
    const double farthest = double{ViewGeometry::farZ} - radius;
    if (farthest > 0) {
        distance = std::min(distance, farthest);
    }
    document.CameraCenter = centre;
    document.CameraDistance = static_cast<float>(distance);
}

} // namespace korvane
