#pragma once

#include "render/drags/ViewPlane.h"

#include <array>
#include <cstdint>
#include <optional>

namespace korvane {

/// The end of one of the two axis lines of a 2D view that a world axis points to.
struct PlaneAxis {
    char letter = 'X';
    PlanePoint way; ///< the axis in the plane: one unit to the left or right, or upward
    double x = 0.0; ///< the place of the end, in pixels
    double y = 0.0;
};

/// The ends of the two axes in the plane, the horizontal line's first; nothing for a line that is
/// out of sight.
std::array<std::optional<PlaneAxis>, 2> planeAxes(const PlaneMapping& mapping, std::int32_t width,
                                                  std::int32_t height);

} // namespace korvane
