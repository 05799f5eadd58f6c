#pragma once

#include "render/scene/Camera.h"

#include <algorithm>
#include <array>

namespace korvane {

/// The direction of a world axis as the 3D view shows it: a unit vector.
struct CrossArm {
    char letter;
    float right;
    float up;
    float depth; ///< away from the eye
};

/// The three axes, from far to near.
inline std::array<CrossArm, 3> axisCross(const CameraAngles& angles) {
    const Matrix4 m = cameraMatrix(DrawApi::Software, angles, 0);
    // x runs to the left in the view space of the software view
    std::array<CrossArm, 3> arms = {
        {{'X', -m[0], m[1], m[2]}, {'Y', -m[4], m[5], m[6]}, {'Z', -m[8], m[9], m[10]}}};
    std::stable_sort(arms.begin(), arms.end(),
                     [](const CrossArm& a, const CrossArm& b) { return a.depth > b.depth; });
    return arms;
}

} // namespace korvane
