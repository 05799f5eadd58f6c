#include "render/drags/MovedMatrix.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace korvane {

namespace {

/// The rotation of world space that the plane shows as counterclockwise.
Matrix4 planeRotation(ViewPlane plane, double cosine, double sine) {
    // signs differ from the textbook's because a plane's axes may run against the world's
    const auto c = static_cast<float>(cosine);
    const auto s = static_cast<float>(sine);
    Matrix4 rotation;
    switch (plane) {
    case ViewPlane::XY:
        rotation[0] = rotation[5] = c;
        rotation[1] = -s;
        rotation[4] = s;
        break;
    case ViewPlane::XZ:
        rotation[0] = rotation[10] = c;
        rotation[2] = -s;
        rotation[8] = s;
        break;
    case ViewPlane::ZY:
        rotation[5] = rotation[10] = c;
        rotation[6] = -s;
        rotation[9] = s;
        break;
    }
    return rotation;
}

} // namespace

Matrix4 movedMatrix(const Matrix4& matrix, const Vec3& way) {
    Matrix4 moved = matrix;
    if (way != Vec3()) { // adding 0 would turn -0 into 0
        moved[12] += way.x;
        moved[13] += way.y;
        moved[14] += way.z;
    }
    return moved;
}

Matrix4 turnedMatrix(const Matrix4& matrix, ViewPlane plane, double cosine, double sine) {
    const Matrix4 turned = MatrixMatrix(matrix, planeRotation(plane, cosine, sine));
    Matrix4 inPlace = matrix;
    std::copy_n(turned.m.begin(), 12, inPlace.m.begin()); // keep the translation
    return inPlace;
}

bool sameBits(const Matrix4& a, const Matrix4& b) {
    using Bits = std::array<std::uint32_t, 16>;
    return std::bit_cast<Bits>(a.m) == std::bit_cast<Bits>(b.m);
}

} // namespace korvane
