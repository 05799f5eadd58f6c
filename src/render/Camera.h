#pragma once

#include "render/ViewState.h"

namespace korvane {

/// The matrix from world space, counted from the camera centre, to view space. The software view
/// looks along +z and the OpenGL view along -z; distance is that of the eye from the centre.
Matrix4 cameraMatrix(DrawApi api, const CameraAngles& angles, float distance);

/// World space to the view space of the software view.
class Camera {
  public:
    Camera(const CameraAngles& angles, float distance, const Vec3& centre)
        : matrix_(cameraMatrix(DrawApi::Software, angles, distance)), centre_(centre) {}

    /// The point in view space. In single precision: this runs for every vertex of every picture.
    [[nodiscard]] Vec3 toView(const Vec3& p) const {
        const float x = p.x - centre_.x;
        const float y = p.y - centre_.y;
        const float z = p.z - centre_.z;
        return {x * matrix_[0] + y * matrix_[4] + z * matrix_[8] + matrix_[12],
                x * matrix_[1] + y * matrix_[5] + z * matrix_[9] + matrix_[13],
                x * matrix_[2] + y * matrix_[6] + z * matrix_[10] + matrix_[14]};
    }
    /// A direction of view space in world space. The camera only turns, so the scalar product of
    /// two directions is the same in both spaces.
    [[nodiscard]] Vec3 directionToWorld(const Vec3& d) const {
        return {d.x * matrix_[0] + d.y * matrix_[1] + d.z * matrix_[2],
                d.x * matrix_[4] + d.y * matrix_[5] + d.z * matrix_[6],
                d.x * matrix_[8] + d.y * matrix_[9] + d.z * matrix_[10]};
    }

  private:
    Matrix4 matrix_;
    Vec3 centre_;
};

} // namespace korvane
