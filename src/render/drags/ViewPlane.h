#pragma once

#include "render/math/VectorMath.h"

#include <cstddef>
#include <cstdint>

namespace korvane {

/// The plane that a 2D view shows, named by its axes: the first one runs across, the second one up.
enum class ViewPlane : std::int32_t { XY = 0, XZ = 1, ZY = 2 };

inline constexpr std::size_t planeCount = 3;
inline constexpr ViewPlane viewPlanes[planeCount] = {ViewPlane::XY, ViewPlane::XZ, ViewPlane::ZY};

/// A point or a way in a plane, in units of the model: u to the right, v upward.
struct PlanePoint {
    float u = 0.0F;
    float v = 0.0F;

    bool operator==(const PlanePoint&) const = default;
};

/// Where a point of world space shows in the plane. In XY and XZ the x axis runs to the left.
constexpr PlanePoint toPlane(ViewPlane plane, const Vec3& p) {
    switch (plane) {
    case ViewPlane::XZ:
        return {-p.x, p.z};
    case ViewPlane::ZY:
        return {p.z, p.y};
    case ViewPlane::XY:
        break;
    }
    return {-p.x, p.y};
}

/// A way in the plane as a way in world space.
constexpr Vec3 toWorld(ViewPlane plane, const PlanePoint& way) {
    switch (plane) {
    case ViewPlane::XZ:
        return {-way.u, 0, way.v};
    case ViewPlane::ZY:
        return {0, way.v, way.u};
    case ViewPlane::XY:
        break;
    }
    return {-way.u, way.v, 0};
}

/// How a plane lies on a bitmap.
struct PlaneMapping {
    ViewPlane plane = ViewPlane::XY;
    std::int32_t centreX = 0; ///< in pixels, as the mouse positions are
    std::int32_t centreY = 0;
    PlanePoint pan;     ///< added to every point of the plane
    float scale = 1.0F; ///< pixels a unit

    [[nodiscard]] double screenX(float u) const { return centreX + (double{u} + pan.u) * scale; }
    [[nodiscard]] double screenY(float v) const { return centreY - (double{v} + pan.v) * scale; }
    /// What lies under a place on the screen.
    [[nodiscard]] PlanePoint under(float x, float y) const {
        return {static_cast<float>((double{x} - centreX) / scale - pan.u),
                static_cast<float>((centreY - double{y}) / scale - pan.v)};
    }
    /// The way between two places on the screen.
    [[nodiscard]] PlanePoint way(float fromX, float fromY, float toX, float toY) const {
        return {static_cast<float>((double{toX} - fromX) / scale),
                static_cast<float>((double{fromY} - toY) / scale)};
    }

    bool operator==(const PlaneMapping&) const = default;
};

/// How a plane lies on the bitmap of a 2D view, of a size in device pixels: centred, in a scale,
/// and moved by a pan in world space.
constexpr PlaneMapping planeMapping(ViewPlane plane, std::int32_t width, std::int32_t height,
                                    float scale, const Vec3& pan) {
    return {plane, width / 2, height / 2, toPlane(plane, pan), scale};
}

// The limits of the zoom scale of the 2D views.
inline constexpr float tooSmallScale = 0.01F;
inline constexpr float largestScale = 5000.0F;

/// The zoom scale after a change by a factor; as it was if that would be beyond the limit in that
/// direction. A scale that started beyond the other limit can always come back.
constexpr float zoomedScale(float scale, float factor) {
    const float zoomed = scale * factor;
    const bool allowed = factor > 1.0F ? zoomed <= largestScale : zoomed > tooSmallScale;
    return allowed ? zoomed : scale;
}

} // namespace korvane
