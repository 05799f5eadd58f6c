#pragma once

#include "render/math/VectorMath.h"

#include <cstddef>
#include <cstdint>

namespace korvane {

/// The plane that a 2D view shows, named by its axes: the first one runs across, the second one up.
enum class ViewPlane : std::int32_t { XY = 0, XZ = 1, ZY = 2 };

inline constexpr std::size_t planeCount = 3;
inline constexpr ViewPlane viewPlanes[planeCount] = {ViewPlane::XY, ViewPlane::XZ, ViewPlane::ZY};

/// A point or a vector in a plane, in model units: u to the right, v upward.
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

/// Converts a vector in the plane to one in world space.
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
    std::int32_t centreX = 0; ///< in device pixels, like mouse positions
    std::int32_t centreY = 0;
    PlanePoint pan;     ///< added to every point of the plane
    float scale = 1.0F; ///< pixels a unit

    [[nodiscard]] double screenX(float u) const { return centreX + (double{u} + pan.u) * scale; }
    [[nodiscard]] double screenY(float v) const { return centreY - (double{v} + pan.v) * scale; }
    /// The point of the plane under a pixel.
    [[nodiscard]] PlanePoint under(float x, float y) const {
        return {static_cast<float>((double{x} - centreX) / scale - pan.u),
                static_cast<float>((centreY - double{y}) / scale - pan.v)};
    }
    /// The vector in the plane from one pixel to another.
    [[nodiscard]] PlanePoint way(float fromX, float fromY, float toX, float toY) const {
        return {static_cast<float>((double{toX} - fromX) / scale),
                static_cast<float>((double{fromY} - toY) / scale)};
    }

    bool operator==(const PlaneMapping&) const = default;
};

/// The mapping of a plane to a 2D view of a size in device pixels: centred, with a scale and a pan
/// in world space.
constexpr PlaneMapping planeMapping(ViewPlane plane, std::int32_t width, std::int32_t height,
                                    float scale, const Vec3& pan) {
    return {plane, width / 2, height / 2, toPlane(plane, pan), scale};
}

// The limits of the zoom scale of the 2D views.
inline constexpr float tooSmallScale = 0.01F;
inline constexpr float largestScale = 5000.0F;

/// The zoom scale times the factor, or unchanged if that passes the limit in the factor's
/// direction. So a scale beyond the other limit can always come back.
constexpr float zoomedScale(float scale, float factor) {
    const float zoomed = scale * factor;
    const bool allowed = factor > 1.0F ? zoomed <= largestScale : zoomed > tooSmallScale;
    return allowed ? zoomed : scale;
}

} // namespace korvane
