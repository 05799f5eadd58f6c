#include "render/math/PublishedMath.h"

#include <cmath>
#include <limits>

namespace korvane {

Vec3 NormMatrix(const Vec3& p, const Matrix4& a) {
    return {static_cast<float>(turnedComponent(p, a, 0)),
            static_cast<float>(turnedComponent(p, a, 1)),
            static_cast<float>(turnedComponent(p, a, 2))};
}

Vec3 VectorViewMatrix(const Vec3& p, const Matrix4& model, const Matrix4& view) {
    const Vec3 t = {static_cast<float>(turnedComponent(p, model, 0) + model[12] + view[12]),
                    static_cast<float>(turnedComponent(p, model, 1) + model[13] + view[13]),
                    static_cast<float>(turnedComponent(p, model, 2) + model[14] + view[14])};
    return NormMatrix(t, view);
}

Matrix4 ScaleMatrix(float s, const Matrix4& a) {
    Matrix4 result;
    for (std::size_t c = 0; c < 4; ++c) {
        result[c] = s * a[c];
        result[4 + c] = s * a[4 + c];
        result[8 + c] = s * a[12 + c];
        result[12 + c] = a[12 + c];
    }
    return result;
}

Matrix4 AddMatrix(const Matrix4& a, const Matrix4& b) {
    Matrix4 result;
    for (std::size_t k = 0; k < 16; ++k) {
        result[k] = a[k] + b[k];
    }
    return result;
}

float AverageZ(std::span<const RenderVertex> vertices) {
    double sum = 0.0;
    for (const RenderVertex& vertex : vertices) {
        sum += vertex.position.z;
    }
    if (vertices.empty()) {
        return std::numeric_limits<float>::quiet_NaN();
    }
    return static_cast<float>(sum / static_cast<double>(vertices.size()));
}

Vec3 AverageNorm(std::span<const RenderVertex> vertices) {
    VectorSum sum;
    for (const RenderVertex& vertex : vertices) {
        sum.add(vertex.normal);
    }
    return Normalize(sum.rounded());
}

Vec3 AverageNorm(std::span<const Vec3> vectors) {
    VectorSum sum;
    for (const Vec3& vector : vectors) {
        sum.add(vector);
    }
    return Normalize(sum.rounded());
}

std::int32_t round(float x) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(x)) {
        return 0;
    }
    if (x >= -static_cast<float>(Limits::min())) {
        return Limits::max();
    }
    if (x <= static_cast<float>(Limits::min())) {
        return Limits::min();
    }
    const auto truncated = static_cast<std::int32_t>(x);
    const float fraction = x - static_cast<float>(truncated);
    return fraction >= 0.5F ? truncated + 1 : truncated;
}

} // namespace korvane
