#pragma once

#include "render/drags/ViewPlane.h"

#include <array>
#include <cstdint>
#include <optional>

namespace korvane {

/// The end of one of the two lines of a 2D view, where an axis of the world points to.
struct PlaneAxis {
    char letter = 'X';
    PlanePoint way; ///< of the axis in the plane: one unit to the left or right, or upward
    double x = 0.0; ///< the place of the end, in pixels
    double y = 0.0;
};

/// The ends of the axes in the plane, first that of the line across, then that of the line upright;
/// none for a line that is out of sight.
std::array<std::optional<PlaneAxis>, 2> planeAxes(const PlaneMapping& mapping, std::int32_t width,
                                                  std::int32_t height);

} // namespace korvane
