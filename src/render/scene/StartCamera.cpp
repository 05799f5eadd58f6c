#include "render/scene/StartCamera.h"

#include "render/scene/Culling.h"
#include "render/scene/DrawCache.h"
#include "render/scene/SelectedFrame.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace korvane {

namespace {

double squaredDistance(const Vec3& a, const Vec3& b) {
    const double x = double{a.x} - b.x;
    const double y = double{a.y} - b.y;
    const double z = double{a.z} - b.z;
    return x * x + y * y + z * z;
}

/// The distance at which a ball of radius 1 fits into the view.
double fitDistance(const ViewGeometry& geometry) {
    const int shorter = std::max(std::min(geometry.cx, geometry.cy), 1);
    return 1.0 / std::sin(std::atan2(double(shorter), double{geometry.f}));
}

std::vector<DrawItem> shownItems(ModelDocument& document, Seen seen) {
    DrawList list;
    list.rebuild(document.Root);
    std::vector<DrawItem> items = list.items();
    if (seen == Seen::Selection) {
        std::erase_if(items, [](const DrawItem& item) {
            return item.frame->SelectState == SelectState::Other;
        });
    }
    return items;
}

/// The bounds of all meshes of the frames, in world space.
Bounds worldBounds(std::span<const DrawItem> items) {
    Bounds bounds;
    for (const DrawItem& item : items) {
        if (item.frame->HasMesh) {
            for (const Vec3& vertex : refreshedCache(*item.frame, item.world).WorldVertices) {
                bounds.add(vertex);
            }
        }
    }
    return bounds;
}

/// Halves each bound, as the sum may overflow.
Vec3 centreOf(const Bounds& bounds) {
    return {bounds.low.x / 2 + bounds.high.x / 2, bounds.low.y / 2 + bounds.high.y / 2,
            bounds.low.z / 2 + bounds.high.z / 2};
}

/// The distance from a point to the farthest of the vertices and of the corners of the selected
/// frame's box.
double radiusAround(const Vec3& centre, std::span<const DrawItem> items) {
    double largest = 0.0;
    const auto add = [&](const Vec3& p) {
        const double squared = squaredDistance(p, centre);
        largest = std::isfinite(squared) ? std::max(largest, squared) : largest;
    };
    for (const DrawItem& item : items) {
        if (!item.frame->HasMesh) {
            continue;
        }
        const DrawCache& cache = drawCache(*item.frame);
        std::for_each(cache.WorldVertices.begin(), cache.WorldVertices.end(), add);
        if (item.frame->SelectState == SelectState::Selected && !cache.bounds().empty) {
            for (const Vec3& corner : boxCorners(cache.bounds())) {
                add(VectorMatrix(corner, item.world));
            }
        }
    }
    return std::sqrt(largest);
}

/// The selected frame's origin in world space, or `otherwise` without one.
Vec3 selectedOrigin(ModelDocument& document, const Vec3& otherwise) {
    const SelectedFrame found = findSelectedFrame(document.Root);
    const Vec3 origin = VectorMatrix({}, found.world);
    return found.frame->SelectState == SelectState::Selected && isFinite(origin) ? origin
                                                                                 : otherwise;
}

/// The distance at which a ball around the camera centre fits into the view, with the eye outside.
double startDistance(double radius, const ViewGeometry& geometry) {
    return std::max(radius * fitDistance(geometry), radius + double{ViewGeometry::nearZ});
}

/// The scale factor for a model of that radius.
double startScale(double radius, const ViewGeometry& geometry) {
    constexpr double radiusOfLarge = 100.0;
    constexpr double most = 1e30; // so that products stay within single precision
    const double diameter = 2 * radius;
    if (radius + startDistance(radius, geometry) > double{ViewGeometry::farZ}) {
        return radiusOfLarge / radius;
    }
    // a single point has no size
    return diameter < 1 && diameter > 0 ? std::min(1 / diameter, most) : 1.0;
}

} // namespace

void startCamera(ModelDocument& document, ViewState& state, const ViewGeometry& geometry,
                 Seen seen) {
    const std::vector<DrawItem> items = shownItems(document, seen);
    const Bounds bounds = worldBounds(items);
    if (bounds.empty && seen == Seen::Selection) {
        document.CameraCenter = selectedOrigin(document, document.CameraCenter);
        return;
    }
    if (bounds.empty) {
        document.CameraCenter = Vec3();
        document.CameraDistance = ModelDocument().CameraDistance;
        state.scaleFactor = 1.0F;
        return;
    }
    document.CameraCenter = centreOf(bounds);
    const double radius = radiusAround(document.CameraCenter, items);
    const double scale = startScale(radius, geometry);
    const double shown = radius * scale;
    // a view a few columns wide would place the eye beyond its depth
    const double farthest = double{ViewGeometry::farZ} - shown;
    document.CameraDistance =
        static_cast<float>(std::min(startDistance(shown, geometry), farthest));
    state.scaleFactor = static_cast<float>(scale);
}

void startPlanes(ModelDocument& document, std::int32_t width, std::int32_t height, Seen seen) {
    const Bounds bounds = worldBounds(shownItems(document, seen));
    if (bounds.empty && seen == Seen::Selection) {
        document.PanVector = -selectedOrigin(document, -document.PanVector);
        return;
    }
    if (bounds.empty) {
        document.PanVector = Vec3();
        document.PlaneScale = ModelDocument().PlaneScale;
        return;
    }
    constexpr double share = 0.9; // of the view
    const double x = double{bounds.high.x} - bounds.low.x;
    const double y = double{bounds.high.y} - bounds.low.y;
    const double z = double{bounds.high.z} - bounds.low.z;
    // the longest horizontal and vertical sides over the three views
    const double across = std::max(x, z);
    const double upright = std::max(y, z);
    double scale = ModelDocument().PlaneScale;
    if (across > 0 || upright > 0) {
        scale = share * std::min(std::max(width, 1) / across, std::max(height, 1) / upright);
    }
    document.PanVector = -centreOf(bounds);
    constexpr double most = 1e30; // within single precision
    document.PlaneScale = static_cast<float>(std::clamp(scale, 1 / most, most));
}

} // namespace korvane
