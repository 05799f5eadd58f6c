#include "render/math/Power.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace korvane {
namespace {

TEST(Power, IsTheNearestFloatOrItsNeighbour) {
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers each time
    std::uniform_real_distribution<float> logarithm(-15, 15);
    for (int i = 0; i < 200'000; ++i) {
        const float exponent = std::exp2(logarithm(random) / 2 + 5);
        const float base = std::exp2(logarithm(random) / exponent);
        const float expected = std::pow(base, exponent);
        EXPECT_LE(std::abs(positivePower(base, exponent) - expected),
                  std::nextafter(expected, 1e9F) - expected)
            << base << " to the power of " << exponent;
    }
}

TEST(Power, IsClampedToItsRange) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(positivePower(1, 200), 1);
    EXPECT_EQ(positivePower(0.5F, 0), 1);
    EXPECT_EQ(positivePower(std::numeric_limits<float>::denorm_min(), 1), 0x1p-126F);
    EXPECT_EQ(positivePower(0.5F, infinity), 0x1p-126F);
    EXPECT_EQ(positivePower(0.5F, -infinity), 0x1p126F);
    EXPECT_EQ(positivePower(0.5F, std::nanf("")), 0x1p-126F);
}

} // namespace
} // namespace korvane
