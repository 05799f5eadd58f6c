#pragma once

#include "render/drags/ViewPlane.h"
#include "render/math/VectorMath.h"

namespace korvane {

/// The frame's matrix with its translation moved by `way`.
Matrix4 movedMatrix(const Matrix4& matrix, const Vec3& way);

/// The frame's matrix turned about the frame's origin, counterclockwise as the plane shows it.
Matrix4 turnedMatrix(const Matrix4& matrix, ViewPlane plane, double cosine, double sine);

/// Whether all bits are equal: unlike ==, this finds a NaN equal to itself.
bool sameBits(const Matrix4& a, const Matrix4& b);

} // namespace korvane
