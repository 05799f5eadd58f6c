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

/// The bounds of all that the frames show, in world space.
Bounds worldBounds(const DrawList& list) {
    Bounds bounds;
    for (const DrawItem& item : list.items()) {
        if (item.frame->HasMesh) {
            item.frame->Cache.refresh(item.frame->Mesh, item.world);
            for (const Vec3& vertex : item.frame->Cache.WorldVertices) {
                bounds.add(vertex);
            }
        }
    }
    return bounds;
}

/// Halved one by one: the sum may be out of range.
Vec3 centreOf(const Bounds& bounds) {
    return {bounds.low.x / 2 + bounds.high.x / 2, bounds.low.y / 2 + bounds.high.y / 2,
            bounds.low.z / 2 + bounds.high.z / 2};
}

} // namespace

void startCamera(ModelDocument& document, const ViewGeometry& geometry) {
    DrawList list;
    list.rebuild(document.Root);
    const Bounds bounds = worldBounds(list);
    if (bounds.empty) {
        document.CameraCenter = Vec3();
        document.CameraDistance = ModelDocument().CameraDistance;
        return;
    }
    const Vec3 centre = centreOf(bounds);
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

void startPlanes(ModelDocument& document, std::int32_t width, std::int32_t height) {
    DrawList list;
    list.rebuild(document.Root);
    const Bounds bounds = worldBounds(list);
    if (bounds.empty) {
        document.PanVector = Vec3();
        document.PlaneScale = ModelDocument().PlaneScale;
        return;
    }
    constexpr double share = 0.9; // of the view
    const double x = double{bounds.high.x} - bounds.low.x;
    const double y = double{bounds.high.y} - bounds.low.y;
    const double z = double{bounds.high.z} - bounds.low.z;
    // of the sides that lie across and upright in one of the views the longest
    const double across = std::max(x, z);
    const double upright = std::max(y, z);
    double scale = ModelDocument().PlaneScale;
    if (across > 0 || upright > 0) {
        scale = share * std::min(std::max(width, 1) / across, std::max(height, 1) / upright);
    }
    document.PanVector = -centreOf(bounds);
    document.PlaneScale = static_cast<float>(
        std::clamp(scale, double{std::nextafter(tooSmallScale, 1.0F)}, double{largestScale}));
}

} // namespace korvane
