#pragma once

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {

/// Texture coordinates: u to the right, v upward, (0, 0) to (1, 1) across one image.
struct Vec2 {
    float u = 0.0F;
    float v = 0.0F;

    bool operator==(const Vec2&) const = default;
};

/// A point or a direction; each use states its space.
struct Vec3 {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    bool operator==(const Vec3&) const = default;
};

constexpr Vec3 operator+(const Vec3& a, const Vec3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

constexpr Vec3 operator-(const Vec3& a) {
    return {-a.x, -a.y, -a.z};
}

/// Whether no coordinate is infinite or NaN.
inline bool isFinite(const Vec3& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

/// A 4 x 4 matrix, row by row: element k is row k / 4, column k % 4. Points are row vectors (p
/// times M), so rows 0 to 2 are the images of the axes and elements 12 to 14 the translation.
/// Element 15 is the homogeneous 1; no operation divides by it. A new matrix is the identity.
struct Matrix4 {
    std::array<float, 16> m = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    float& operator[](std::size_t k) { return m[k]; }
    float operator[](std::size_t k) const { return m[k]; }
    bool operator==(const Matrix4&) const = default;
};

/// Whether no element is infinite or NaN.
inline bool isFinite(const Matrix4& a) {
    return std::all_of(a.m.begin(), a.m.end(),
                       [](float element) { return std::isfinite(element); });
}

/// One corner of a face on its way through the drawing pipelines: twelve floats.
struct RenderVertex {
    Vec3 position;                  ///< floats 0 to 2
    Vec3 normal;                    ///< floats 3 to 5
    float u = 0.0F;                 ///< float 6, interpolated like the position
    float v = 0.0F;                 ///< float 7, interpolated like the position
    std::array<float, 3> color{};   ///< floats 8 to 10, the lit colour, channels 0 to 1
    float specularIntensity = 0.0F; ///< float 11, 0 to 1
};

// Each component of a result is computed in double precision and rounded to single precision once.

/// p times column c of the upper 3 x 3, in double precision.
inline double turnedComponent(const Vec3& p, const Matrix4& a, std::size_t c) {
    return double{p.x} * a[c] + double{p.y} * a[4 + c] + double{p.z} * a[8 + c];
}

/// A times B: as points are row vectors, A acts first. So a child's world matrix is
/// MatrixMatrix(child's own matrix, parent's world matrix).
Matrix4 MatrixMatrix(const Matrix4& a, const Matrix4& b);

/// The point p transformed by A, translation included.
Vec3 VectorMatrix(const Vec3& p, const Matrix4& a);

/// The scalar product.
float dotproduct(const Vec3& p, const Vec3& q);

/// p divided by its length; a length of 0 or NaN counts as 1e-6, so a zero vector stays zero.
inline Vec3 Normalize(const Vec3& p) {
    auto length =
        static_cast<float>(std::sqrt(double{p.x} * p.x + double{p.y} * p.y + double{p.z} * p.z));
    if (length == 0.0F || std::isnan(length)) {
        length = 1e-6F;
    }
    return {p.x / length, p.y / length, p.z / length};
}

/// The unit vector of a direction; zero if the length is zero or not finite.
inline Vec3 unitVector(double x, double y, double z) {
    const double length = std::sqrt(x * x + y * y + z * z);
    if (!(length > 0) || !std::isfinite(length)) {
        return {};
    }
    return {static_cast<float>(x / length), static_cast<float>(y / length),
            static_cast<float>(z / length)};
}

/// Whether the matrix reverses handedness.
inline bool mirrors(const Matrix4& m) {
    return double{m[0]} * (double{m[5]} * m[10] - double{m[6]} * m[9]) -
               double{m[1]} * (double{m[4]} * m[10] - double{m[6]} * m[8]) +
               double{m[2]} * (double{m[4]} * m[9] - double{m[5]} * m[8]) <
           0;
}

/// A sum of vectors in double precision, rounded only when read.
class VectorSum {
  public:
    void add(const Vec3& v) {
        x_ += v.x;
        y_ += v.y;
        z_ += v.z;
    }
    [[nodiscard]] Vec3 rounded() const {
        return {static_cast<float>(x_), static_cast<float>(y_), static_cast<float>(z_)};
    }

  private:
    double x_ = 0.0;
    double y_ = 0.0;
    double z_ = 0.0;
};

} // namespace korvane
