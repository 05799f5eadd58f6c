#pragma once

#include "render/Lanes.h"
#include "render/ViewState.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {

/// The matrix from world space, counted from the camera centre, to view space. The software view
/// looks along +z and the OpenGL view along -z; distance is that of the eye from the centre.
Matrix4 cameraMatrix(DrawApi api, const CameraAngles& angles, float distance);

/// World space to the view space of the software view.
class Camera {
  public:
    Camera(const CameraAngles& angles, float distance, const Vec3& centre)
        : matrix_(cameraMatrix(DrawApi::Software, angles, distance)), centre_(centre) {
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            rows_[row] = loadLanes<FloatLanes>(&matrix_.m[4 * row]);
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
    /// A direction of view space in world space. The camera only turns, so the scalar product of
    /// two directions is the same in both spaces.
    [[nodiscard]] Vec3 directionToWorld(const Vec3& d) const {
        return {d.x * matrix_[0] + d.y * matrix_[1] + d.z * matrix_[2],
                d.x * matrix_[4] + d.y * matrix_[5] + d.z * matrix_[6],
                d.x * matrix_[8] + d.y * matrix_[9] + d.z * matrix_[10]};
    }

    /// How large the numbers are that view positions are summed up from, besides the points.
    [[nodiscard]] float magnitude() const {
        return std::max(
            {std::abs(centre_.x), std::abs(centre_.y), std::abs(centre_.z), std::abs(matrix_[14])});
    }

  private:
    Matrix4 matrix_;
    std::array<FloatLanes, 4> rows_{}; ///< of the matrix
    Vec3 centre_;
};

} // namespace korvane
