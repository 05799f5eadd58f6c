#include "render/math/PublishedMath.h"
#include "support/FrameMaking.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace korvane {
namespace {

using test::translation;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

/// A quarter turn about z that takes x to y.
const Matrix4 quarterTurn = {{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};

Matrix4 counting() {
    Matrix4 m;
    std::iota(m.m.begin(), m.m.end(), 1.0F);
    return m;
}

TEST(VectorMath, MatrixProductActsLeftToRight) {
    const Matrix4 moveThenTurn = MatrixMatrix(translation(1, 0, 0), quarterTurn);
    EXPECT_EQ(VectorMatrix({0, 0, 0}, moveThenTurn), (Vec3{0, 1, 0}));
    EXPECT_EQ(
        MatrixMatrix(counting(), counting()),
        (Matrix4{{90, 100, 110, 120, 202, 228, 254, 280, 314, 356, 398, 440, 426, 484, 542, 600}}));
}

TEST(VectorMath, ComponentsAreRoundedOnce) {
    // in single precision 1e8 + 1 - 1e8 is 0; rounded once it is 1
    Matrix4 column;
    column[0] = 1e8F;
    column[4] = 1.0F;
    column[8] = -1e8F;
    EXPECT_EQ(NormMatrix({1, 1, 1}, column).x, 1.0F);
    EXPECT_EQ(VectorMatrix({1, 1, 1}, column).x, 1.0F);
    EXPECT_EQ(dotproduct({1e8F, 1, -1e8F}, {1, 1, 1}), 1.0F);
    const Matrix4 ones = {{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}};
    EXPECT_EQ(MatrixMatrix(Matrix4{{1e8F, 1, -1e8F}}, ones)[0], 1.0F);
    const Vec3 many[] = {{1e8F, 0, 0}, {1, 0, 0}, {-1e8F, 0, 0}};
    EXPECT_EQ(AverageNorm(many), (Vec3{1, 0, 0}));
}

TEST(VectorMath, PointsDirectionsAndTheViewOffset) {
    const Matrix4 a = translation(10, 20, 30);
    EXPECT_EQ(VectorMatrix({1, 2, 3}, a), (Vec3{11, 22, 33}));
    EXPECT_EQ(NormMatrix({1, 2, 3}, a), (Vec3{1, 2, 3}));
    // the view's translation is turned with the point
    Matrix4 view = quarterTurn;
    view[12] = 1;
    EXPECT_EQ(VectorViewMatrix({2, 0, 5}, Matrix4(), view), (Vec3{0, 3, 5}));
}

TEST(VectorMath, SumsAndScaleWhichDropsRowTwo) {
    const Matrix4 expected{{2, 4, 6, 8, 10, 12, 14, 16, 26, 28, 30, 32, 13, 14, 15, 16}};
    EXPECT_EQ(ScaleMatrix(2, counting()), expected);
    EXPECT_EQ(AddMatrix(counting(), Matrix4())[15], 17);
}

TEST(VectorMath, NormalizeAndAverages) {
    EXPECT_EQ(Normalize({0, 0, 0}), (Vec3{0, 0, 0}));
    EXPECT_EQ(Normalize({3, 0, 4}), (Vec3{0.6F, 0, 0.8F}));
    EXPECT_EQ(Normalize({1e-20F, 0, 0}), (Vec3{1, 0, 0})); // short, but not zero
    EXPECT_EQ(Normalize({nan, 2, 0}).y, 2 / 1e-6F);
    EXPECT_TRUE(std::isnan(AverageZ({})));
    const RenderVertex both[] = {{.position = {0, 0, 1}, .normal = {0, 2, 0}},
                                 {.position = {0, 0, 4}, .normal = {0, 1, 0}}};
    EXPECT_EQ(AverageZ(both), 2.5F);
    EXPECT_EQ(AverageNorm(both), (Vec3{0, 1, 0}));
    EXPECT_EQ(AverageNorm(std::span<const Vec3>()), (Vec3{0, 0, 0}));
}

TEST(VectorMath, RoundIsOneSided) {
    using Limits = std::numeric_limits<std::int32_t>;
    std::vector<std::int32_t> rounded;
    for (const float x :
         {0.5F, 1.49F, 2.5F, -0.5F, -1.9F, -2.5F, -2.7F, nan, 16777216.0F, 3e9F, -3e9F}) {
        rounded.push_back(round(x));
    }
    EXPECT_EQ(rounded, (std::vector<std::int32_t>{1, 1, 3, 0, -1, -2, -2, 0, 16777216,
                                                  Limits::max(), Limits::min()}));
}

} // namespace
} // namespace korvane
