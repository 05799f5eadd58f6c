#include "render/scene/Lighting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvane {
namespace {

/// Lit with the light behind the eye, which looks along +z.
LitColor lit(const MaterialRecord& material, const Vec3& normal, bool flip = false) {
    const Vec3 toEye = {0, 0, -1};
    return lightNormal(normal, {toEye, halfVector(toEye, toEye), {0, 0, 1}},
                       SurfaceColors(material), flip);
}

MaterialRecord material() {
    MaterialRecord material;
    material.FaceColor = {0.5F, 0.25F, 1, 1};
    material.Power = 3;
    return material;
}

TEST(Lighting, DiffuseAndHighlightGoByTheAngle) {
    const float cosine = 0.8F;
    const LitColor vertex = lit(material(), {0.6F, 0, -cosine});
    EXPECT_FLOAT_EQ(vertex.color.red, 0.4F);
    EXPECT_FLOAT_EQ(vertex.color.green, 0.2F);
    EXPECT_FLOAT_EQ(vertex.color.blue, 0.8F);
    EXPECT_FLOAT_EQ(vertex.specular, std::pow(cosine, 3.0F));
    EXPECT_EQ(lit(material(), {0, 0, 1}).color.blue, 0) << "the far side is dark";
    EXPECT_EQ(lit(material(), {0, 0, 1}).specular, 0);
    // long normals are cut off, not wrapped
    EXPECT_EQ(lit(material(), {0, 0, -7}).specular, 1);
    EXPECT_FLOAT_EQ(lit(material(), {0, 0, -7}).color.red, 0.5F);
}

TEST(Lighting, OddPowers) {
    MaterialRecord odd = material();
    odd.Power = 0;
    EXPECT_EQ(lit(odd, {0, 0, -1}).specular, 0) << "no highlight, not a uniform one";
    odd.Power = -2;
    EXPECT_EQ(lit(odd, {0.6F, 0, -0.8F}).specular, 1) << "above 1, cut off";
    for (const float power : {1e-3F, 5.0F, 40.0F, 1e4F}) {
        odd.Power = power;
        for (float t = 0.01F; t < 1; t += 0.01F) {
            EXPECT_NEAR(SurfaceColors(odd).lit(t, t).specular, std::pow(t, power), 1e-4);
        }
    }
}

TEST(Lighting, FlippingTurnsOnlyNormalsThatPointAway) {
    EXPECT_FLOAT_EQ(lit(material(), {0, 0.6F, 0.8F}, true).color.red, 0.4F);
    EXPECT_FLOAT_EQ(lit(material(), {0, 0.6F, 0.8F}, true).specular, std::pow(0.8F, 3.0F));
    EXPECT_FLOAT_EQ(lit(material(), {0, 0.6F, -0.8F}, true).color.red, 0.4F);
    // the light from behind: what is turned to the eye is dark
    const LitColor dark =
        lightNormal({0, 0, 1}, {{0, 0, 1}, {}, {0, 0, 1}}, SurfaceColors(material()), true);
    EXPECT_EQ(dark.color.red, 0);
}

TEST(Lighting, HalfVectorIsNotNormalised) {
    EXPECT_EQ(halfVector({1, 0, 0}, {0, 0, -1}), (Vec3{0.5F, 0, -0.5F}));
}

TEST(Lighting, AdditiveColourKeepsTheHueOfTheFace) {
    MaterialRecord grey = material();
    grey.Ambient = {0.5F, 0.5F, 0.5F};
    grey.Emissive = {0, 0, 0.125F};
    const ColorRGB added = additiveColor(grey);
    EXPECT_FLOAT_EQ(added.red, 0.125F);
    EXPECT_FLOAT_EQ(added.green, 0.0625F);
    EXPECT_FLOAT_EQ(added.blue, 0.375F);
    EXPECT_FLOAT_EQ(lit(grey, {1, 0, 0}).color.blue, 0.375F);
    grey.Emissive = {2, -2, 0};
    EXPECT_EQ(lit(grey, {0, 0, -1}).color.red, 1);
    EXPECT_EQ(lit(grey, {0, 0, -1}).color.green, 0);
}

} // namespace
} // namespace korvane
