#pragma once

#include "render/scene/ViewState.h"

#include <array>

namespace korvane {

/// A view along a world axis.
struct AxisDirection {
    const char* name; ///< "+X" looks towards growing x
    Vec3 direction;
    CameraAngles angles;
};

/// "+Z", "-Y" and "+X" show the model the same way up as the XY, XZ and ZY views.
inline constexpr std::array<AxisDirection, 6> axisDirections = {{
    {"+X", {1, 0, 0}, {0, viewPi / 2, 0}},
    {"-X", {-1, 0, 0}, {0, -viewPi / 2, 0}},
    {"+Y", {0, 1, 0}, {-viewPi / 2, 0, 0}},
    {"-Y", {0, -1, 0}, {viewPi / 2, 0, 0}},
    {"+Z", {0, 0, 1}, {0, 0, 0}},
    {"-Z", {0, 0, -1}, {0, viewPi, 0}},
}};

} // namespace korvane
