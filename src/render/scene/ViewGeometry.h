#pragma once

#include "render/math/VectorMath.h"

#include <array>
#include <cstdint>

namespace korvane {

/// A plane of the view: points of view space with a distance of 0 or more are inside.
struct ClipPlane {
    Vec3 normal;
    float d = 0.0F;

    [[nodiscard]] float distance(const Vec3& p) const { return dotproduct(normal, p) - d; }
};

/// What follows from a view's size in device pixels: its centre, focal length and clip planes, for
/// a vertical field of view of 60 degrees.
struct ViewGeometry {
    /// The near plane; the eye looks along +z.
    static constexpr float nearZ = 0.25F;
    /// The initial value of the z-buffer; nothing behind it is drawn.
    static constexpr float farZ = 5000.0F;

    /// A width or height of 0 or less counts as 1, but has its centre at 0.
    ViewGeometry(std::int32_t viewWidth, std::int32_t viewHeight);

    std::int32_t width;
    std::int32_t height;
    std::int32_t cx;
    std::int32_t cy;
    float f; ///< focal length in pixels
    /// Near, right, left, bottom and top; there is no far plane. The last four lean inward by a ten
    /// thousandth of a radian from the true edges of the picture.
    std::array<ClipPlane, 5> planes;
};

} // namespace korvane
