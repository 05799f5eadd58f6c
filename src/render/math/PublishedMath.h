#pragma once

#include "render/math/VectorMath.h"

#include <cstdint>
#include <span>

namespace korvane {

// Operations kept for callers outside the program, which itself calls none of them. They extend
// VectorMath.h.

/// The direction p transformed by the upper 3 x 3 of A; not translated, not renormalised.
Vec3 NormMatrix(const Vec3& p, const Matrix4& a);

/// The point p transformed by the model matrix, then moved by the translation row of the view
/// matrix, then turned by the view's upper 3 x 3: the view's translation is an offset in world
/// space (the negated point looked at), not in view space.
Vec3 VectorViewMatrix(const Vec3& p, const Matrix4& model, const Matrix4& view);

/// Returns the rows s * row 0, s * row 1, s * row 3 and row 3 of A. Row 2 of A is not used.
Matrix4 ScaleMatrix(float s, const Matrix4& a);

/// The element-wise sum.
Matrix4 AddMatrix(const Matrix4& a, const Matrix4& b);

/// The mean z of the vertices; NaN when there are none.
float AverageZ(std::span<const RenderVertex> vertices);

/// The normalised sum of the vertices' normals; zero when there are none.
Vec3 AverageNorm(std::span<const RenderVertex> vertices);

/// The normalised sum of the vectors; zero when there are none.
Vec3 AverageNorm(std::span<const Vec3> vectors);

/// Rounds halves of positive numbers up (2.5 to 3), but only truncates negative numbers (-2.7 to
/// -2). Clamps to the range of a 32-bit integer; NaN returns 0.
std::int32_t round(float x);

} // namespace korvane
