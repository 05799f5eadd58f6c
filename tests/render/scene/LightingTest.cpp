#include "render/scene/Lighting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvane {
namespace {

/// Lights with the light behind the eye, which looks along +z.
LitColor lit(const MaterialRecord& material, const Vec3& normal) {
    const Vec3 toEye = {0, 0, -1};
    return lightNormal(normal, {toEye, toEye, {0, 0, 1}}, SurfaceColors(material), false);
}

MaterialRecord material(float power = 3) {
    MaterialRecord material;
    material.FaceColor = {0.5F, 0.25F, 1, 1};
    material.Power = power;
    return material;
}

TEST(Lighting, DependsOnTheAngle) {
    // lit from behind: sides that face the eye are dark
    const LightDirections behind = {{0, 0, 1}, {}, {0, 0, 1}};
    EXPECT_EQ(lightNormal({0, 0, 1}, behind, SurfaceColors(material()), true).color.red, 0);
    EXPECT_FLOAT_EQ(lit(material(), {0.6F, 0, -0.8F}).specular, 0.512F);
    EXPECT_EQ(lit(material(), {0, 0, -7}).specular, 1) << "clamped, not wrapped";
    EXPECT_EQ(halfVector({1, 0, 0}, {0, 0, -1}), (Vec3{0.5F, 0, -0.5F})) << "not normalised";
}

TEST(Lighting, OddPowers) {
    EXPECT_EQ(lit(material(0), {0, 0, -1}).specular, 0) << "no highlight, not a uniform one";
    EXPECT_EQ(lit(material(-2), {0.6F, 0, -0.8F}).specular, 1) << "clamped to 1";
    for (const float power : {1e-3F, 5.0F, 40.0F, 1e4F}) {
        for (float t = 0.01F; t < 1; t += 0.01F) {
            EXPECT_NEAR(SurfaceColors(material(power)).lit(t, t).specular, std::pow(t, power),
                        1e-4);
        }
    }
}

TEST(Lighting, AdditiveColourKeepsTheHueOfTheFace) {
    MaterialRecord grey = material();
    grey.Ambient = {0.5F, 0.5F, 0.5F};
    grey.Emissive = {0, 0, 0.125F};
    const ColorRGB added = additiveColor(grey);
    EXPECT_FLOAT_EQ(added.green, 0.0625F);
    EXPECT_FLOAT_EQ(added.blue, 0.375F);
    grey.Emissive = {2, -2, 0};
    EXPECT_EQ(lit(grey, {0, 0, -1}).color.red, 1);
    EXPECT_EQ(lit(grey, {0, 0, -1}).color.green, 0);
    // flat shading mixes in the specular colour instead
    EXPECT_FLOAT_EQ(flatColor({1, 0.5F, 0}, 0.25F, {0, 0.5F, 1}).red, 0.75F * 255);
}

} // namespace
} // namespace korvane
