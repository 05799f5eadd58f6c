#include "render/math/PublishedMath.h"
#include "support/FrameMaking.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace korvane {
namespace {

using test::translation;

/// A quarter turn about z that takes x to y.
Matrix4 quarterTurn() {
    Matrix4 m;
    m[0] = m[5] = 0;
    m[1] = 1;
    m[4] = -1;
    return m;
}

Matrix4 counting() {
    Matrix4 m;
    for (std::size_t k = 0; k < 16; ++k) {
        m[k] = static_cast<float>(k + 1);
    }
    return m;
}

TEST(VectorMath, MatrixProductActsLeftToRight) {
    const Matrix4 a = counting();
    EXPECT_EQ(MatrixMatrix(Matrix4(), a), a);
    EXPECT_EQ(MatrixMatrix(a, Matrix4()), a);
    const Matrix4 moveThenTurn = MatrixMatrix(translation(1, 0, 0), quarterTurn());
    EXPECT_EQ(VectorMatrix({0, 0, 0}, moveThenTurn), (Vec3{0, 1, 0}));
    const Matrix4 square = MatrixMatrix(a, a);
    EXPECT_EQ(square[0], 90);
    EXPECT_EQ(square[3], 120);
    EXPECT_EQ(square[12], 426);
    EXPECT_EQ(square[15], 600);
}

TEST(VectorMath, ComponentsAreRoundedOnce) {
    // In single precision 1e8 + 1 - 1e8 is 0; rounded once it is 1.
    Matrix4 a;
    a[0] = 1e8F;
    a[4] = 1.0F;
    a[8] = -1e8F;
    EXPECT_EQ(NormMatrix({1, 1, 1}, a).x, 1.0F);
    EXPECT_EQ(VectorMatrix({1, 1, 1}, a).x, 1.0F);
    EXPECT_EQ(dotproduct({1e8F, 1, -1e8F}, {1, 1, 1}), 1.0F);
    Matrix4 ones = counting();
    ones[0] = ones[4] = ones[8] = ones[12] = 1.0F;
    Matrix4 row;
    row[0] = 1e8F;
    row[1] = 1.0F;
    row[2] = -1e8F;
    EXPECT_EQ(MatrixMatrix(row, ones)[0], 1.0F);
    const Vec3 many[] = {{1e8F, 0, 0}, {1, 0, 0}, {-1e8F, 0, 0}};
    EXPECT_EQ(AverageNorm(many), (Vec3{1, 0, 0}));
}

TEST(VectorMath, PointsDirectionsAndTheViewOffset) {
    const Matrix4 a = translation(10, 20, 30);
    EXPECT_EQ(VectorMatrix({1, 2, 3}, a), (Vec3{11, 22, 33}));
    EXPECT_EQ(NormMatrix({1, 2, 3}, a), (Vec3{1, 2, 3}));
    // the view's translation is turned with the point
    Matrix4 view = quarterTurn();
    view[12] = 1;
    EXPECT_EQ(VectorViewMatrix({2, 0, 5}, Matrix4(), view), (Vec3{0, 3, 5}));
}

TEST(VectorMath, ScaleMatrixDropsRowTwo) {
    const Matrix4 scaled = ScaleMatrix(2, counting());
    const Matrix4 expected{{2, 4, 6, 8, 10, 12, 14, 16, 26, 28, 30, 32, 13, 14, 15, 16}};
    EXPECT_EQ(scaled, expected);
    EXPECT_EQ(AddMatrix(counting(), Matrix4())[15], 17);
}

TEST(VectorMath, NormalizeAndAverages) {
    EXPECT_EQ(Normalize({0, 0, 0}), (Vec3{0, 0, 0}));
    EXPECT_EQ(Normalize({3, 0, 4}), (Vec3{0.6F, 0, 0.8F}));
    EXPECT_EQ(Normalize({1e-20F, 0, 0}), (Vec3{1, 0, 0})); // short, but not zero
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(Normalize({nan, 2, 0}).y, 2 / 1e-6F);

    EXPECT_TRUE(std::isnan(AverageZ({})));
    RenderVertex a;
    a.position.z = 1;
    a.normal = {0, 2, 0};
    RenderVertex b;
    b.position.z = 4;
    b.normal = {0, 1, 0};
    const RenderVertex both[] = {a, b};
    EXPECT_EQ(AverageZ(both), 2.5F);
    EXPECT_EQ(AverageNorm(both), (Vec3{0, 1, 0}));
    EXPECT_EQ(AverageNorm(std::span<const Vec3>()), (Vec3{0, 0, 0}));
}

TEST(VectorMath, RoundIsOneSided) {
    const struct {
        float x;
        std::int32_t expected;
    } rows[] = {{0.5F, 1},
                {1.49F, 1},
                {2.5F, 3},
                {-0.5F, 0},
                {-1.9F, -1},
                {-2.5F, -2},
                {-2.7F, -2},
                {16777216.0F, 16777216},
                {3e9F, std::numeric_limits<std::int32_t>::max()},
                {-3e9F, std::numeric_limits<std::int32_t>::min()},
                {std::numeric_limits<float>::quiet_NaN(), 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(round(row.x), row.expected) << row.x;
    }
}

} // namespace
} // namespace korvane
