#include "render/math/VectorMath.h"

namespace korvane {

Matrix4 MatrixMatrix(const Matrix4& a, const Matrix4& b) {
    Matrix4 result;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            result[4 * r + c] = static_cast<float>(
                double{a[4 * r]} * b[c] + double{a[4 * r + 1]} * b[4 + c] +
                double{a[4 * r + 2]} * b[8 + c] + double{a[4 * r + 3]} * b[12 + c]);
        }
    }
    return result;
}

Vec3 VectorMatrix(const Vec3& p, const Matrix4& a) {
    return {static_cast<float>(turnedComponent(p, a, 0) + a[12]),
            static_cast<float>(turnedComponent(p, a, 1) + a[13]),
            static_cast<float>(turnedComponent(p, a, 2) + a[14])};
}

float dotproduct(const Vec3& p, const Vec3& q) {
    return static_cast<float>(double{p.x} * q.x + double{p.y} * q.y + double{p.z} * q.z);
}

} // namespace korvane
