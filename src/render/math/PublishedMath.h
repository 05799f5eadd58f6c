#pragma once

#include "render/math/VectorMath.h"

#include <cstdint>
#include <span>

namespace korvane {

// Operations kept for callers outside the program, which itself calls none of them. They go with
// those of VectorMath.h.

/// The direction p turned by the upper 3 x 3 of A; no translation, not renormalised.
Vec3 NormMatrix(const Vec3& p, const Matrix4& a);

/// The point p moved by the model matrix, then by the translation row of the view matrix, then
/// turned by the view's upper 3 x 3: the view's translation is an offset in world space (the point
/// looked at, negated), not one in view space.
Vec3 VectorViewMatrix(const Vec3& p, const Matrix4& model, const Matrix4& view);

/// Rows 0 and 1 of A scaled by s, then row 3 scaled by s, then row 3 as it is: row 2 of A does not
/// reach the result.
Matrix4 ScaleMatrix(float s, const Matrix4& a);

/// The element-wise sum of all sixteen elements.
Matrix4 AddMatrix(const Matrix4& a, const Matrix4& b);

/// The mean z of the vertices; NaN when there are none.
float AverageZ(std::span<const RenderVertex> vertices);

/// The normalised sum of the vertices' normals; zero when there are none.
Vec3 AverageNorm(std::span<const RenderVertex> vertices);

/// The normalised sum of the vectors; zero when there are none.
Vec3 AverageNorm(std::span<const Vec3> vectors);

/// Halves of positive numbers go up (2.5 gives 3); a negative number is only truncated (-2.7 gives
/// -2). Numbers that no 32-bit integer holds give the nearest one, NaN gives 0.
std::int32_t round(float x);

} // namespace korvane
