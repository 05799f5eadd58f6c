#pragma once

#include "render/math/Lanes.h"
#include "render/scene/ViewState.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {

/// The matrix from world space relative to the camera centre to view space. The software view looks
/// along +z, the OpenGL view along -z. `distance` is the eye's from the centre.
Matrix4 cameraMatrix(DrawApi api, const CameraAngles& angles, float distance);

/// Transforms world space to the view space of the software view, scaling the world by a factor
/// about the centre.
class Camera {
  public:
    Camera(const CameraAngles& angles, float distance, const Vec3& centre, float scale = 1.0F)
        : matrix_(cameraMatrix(DrawApi::Software, angles, distance)), centre_(centre),
          scale_(scale) {
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            rows_[row] = loadLanes<FloatLanes>(&matrix_.m[4 * row]);
        }
        for (std::size_t axis = 0; axis < 3; ++axis) {
            rows_[axis] *= allLanes(scale);
        }
    }

    /// The point in view space: x, y and z in the first three lanes. Single precision, as this runs
    /// for every vertex of every picture.
    [[nodiscard]] FloatLanes toViewLanes(const Vec3& p) const {
        return rows_[0] * allLanes(p.x - centre_.x) + rows_[1] * allLanes(p.y - centre_.y) +
               rows_[2] * allLanes(p.z - centre_.z) + rows_[3];
    }
    [[nodiscard]] Vec3 toView(const Vec3& p) const {
        const FloatLanes view = toViewLanes(p);
        return {view[0], view[1], view[2]};
    }
    /// Converts a direction from view space to world space. The camera only rotates directions, so
    /// both spaces have the same scalar products.
    [[nodiscard]] Vec3 directionToWorld(const Vec3& d) const {
        return {d.x * matrix_[0] + d.y * matrix_[1] + d.z * matrix_[2],
                d.x * matrix_[4] + d.y * matrix_[5] + d.z * matrix_[6],
                d.x * matrix_[8] + d.y * matrix_[9] + d.z * matrix_[10]};
    }

    /// A bound, in view space, on the terms that add up to a point's view position. Rounding errors
    /// grow with it.
    [[nodiscard]] float magnitude(const Vec3& p) const {
        return std::max(std::abs(matrix_[14]), scale_ * std::max(largest(p), largest(centre_)));
    }

  private:
    [[nodiscard]] static float largest(const Vec3& p) {
        return std::max({std::abs(p.x), std::abs(p.y), std::abs(p.z)});
    }

    Matrix4 matrix_;
    std::array<FloatLanes, 4> rows_{}; ///< of the matrix, with the scale factor in the first three
    Vec3 centre_;
    float scale_;
};

} // namespace korvane
