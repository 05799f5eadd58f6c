#pragma once

#include "render/drags/ViewPlane.h"
#include "render/math/VectorMath.h"

namespace korvane {

/// The matrix of a frame whose place is moved by a way.
Matrix4 movedMatrix(const Matrix4& matrix, const Vec3& way);

/// The matrix of a frame that is turned about its own origin, by an angle that shows in the plane,
/// counterclockwise.
Matrix4 turnedMatrix(const Matrix4& matrix, ViewPlane plane, double cosine, double sine);

/// Whether the matrices are the same in every bit, so that a NaN is no change.
bool sameBits(const Matrix4& a, const Matrix4& b);

} // namespace korvane
