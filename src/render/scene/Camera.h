#pragma once

#include "render/math/Lanes.h"
#include "render/scene/ViewState.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {

/// The matrix from world space, counted from the camera centre, to view space. The software view
/// looks along +z and the OpenGL view along -z; distance is that of the eye from the centre.
Matrix4 cameraMatrix(DrawApi api, const CameraAngles& angles, float distance);

/// World space to the view space of the software view, which has the world larger by a scale factor
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

    /// The point in view space, x, y and z in the first three lanes. In single precision: this runs
    /// for every vertex of every picture.
    [[nodiscard]] FloatLanes toViewLanes(const Vec3& p) const {
        return rows_[0] * allLanes(p.x - centre_.x) + rows_[1] * allLanes(p.y - centre_.y) +
               rows_[2] * allLanes(p.z - centre_.z) + rows_[3];
    }
    [[nodiscard]] Vec3 toView(const Vec3& p) const {
        const FloatLanes view = toViewLanes(p);
        return {view[0], view[1], view[2]};
    }
    /// A direction of view space in world space. The camera only turns directions, so the scalar
    /// product of two is the same in both spaces.
    [[nodiscard]] Vec3 directionToWorld(const Vec3& d) const {
        return {d.x * matrix_[0] + d.y * matrix_[1] + d.z * matrix_[2],
                d.x * matrix_[4] + d.y * matrix_[5] + d.z * matrix_[6],
                d.x * matrix_[8] + d.y * matrix_[9] + d.z * matrix_[10]};
    }

    /// How large the numbers are that the view position of a point is summed up from, in view
    /// space.
    [[nodiscard]] float magnitude(const Vec3& p) const {
        return std::max(std::abs(matrix_[14]), scale_ * std::max(largest(p), largest(centre_)));
    }

  private:
    [[nodiscard]] static float largest(const Vec3& p) {
        return std::max({std::abs(p.x), std::abs(p.y), std::abs(p.z)});
    }

    Matrix4 matrix_;
    std::array<FloatLanes, 4> rows_{}; ///< of the matrix, the turning ones scaled
    Vec3 centre_;
    float scale_;
};

} // namespace korvane
