#include "render/Lighting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvane {
namespace {

RenderVertex lit(const MaterialRecord& material, const Vec3& normal, bool flip = false) {
    RenderVertex vertex;
    vertex.normal = normal;
    lightVertex(vertex, {0, 0, -1}, {0, 0, -1}, SurfaceColors(material), flip);
    return vertex;
}

MaterialRecord material() {
    MaterialRecord material;
    material.FaceColor = {0.5F, 0.25F, 1, 1};
    material.Power = 3;
    return material;
}

TEST(Lighting, DiffuseAndHighlightGoByTheAngle) {
    const float cosine = 0.8F;
    const RenderVertex vertex = lit(material(), {0.6F, 0, -cosine});
    EXPECT_FLOAT_EQ(vertex.color[0], 0.4F);
    EXPECT_FLOAT_EQ(vertex.color[1], 0.2F);
    EXPECT_FLOAT_EQ(vertex.color[2], 0.8F);
    EXPECT_FLOAT_EQ(vertex.specularIntensity, std::pow(cosine, 3.0F));
    EXPECT_EQ(lit(material(), {0, 0, 1}).color[2], 0) << "the far side is dark";
    EXPECT_EQ(lit(material(), {0, 0, 1}).specularIntensity, 0);
    // long normals are cut off, not wrapped
    EXPECT_EQ(lit(material(), {0, 0, -7}).specularIntensity, 1);
    EXPECT_FLOAT_EQ(lit(material(), {0, 0, -7}).color[0], 0.5F);
}

TEST(Lighting, OddPowers) {
    MaterialRecord odd = material();
    odd.Power = 0;
    EXPECT_EQ(lit(odd, {0, 0, -1}).specularIntensity, 0) << "no highlight, not a uniform one";
    odd.Power = -2;
    EXPECT_EQ(lit(odd, {0.6F, 0, -0.8F}).specularIntensity, 1) << "above 1, cut off";
    for (const float power : {1e-3F, 5.0F, 40.0F, 1e4F}) {
        odd.Power = power;
        for (float t = 0.01F; t < 1; t += 0.01F) {
            EXPECT_NEAR(SurfaceColors(odd).lit(t, t).specular, std::pow(t, power), 1e-4);
        }
    }
}

TEST(Lighting, FlippingTurnsOnlyNormalsThatPointAway) {
    const RenderVertex away = lit(material(), {0, 0.6F, 0.8F}, true);
    EXPECT_EQ(away.normal, (Vec3{0, -0.6F, -0.8F}));
    EXPECT_FLOAT_EQ(away.color[0], 0.4F);
    EXPECT_EQ(lit(material(), {0, 0.6F, -0.8F}, true).normal, (Vec3{0, 0.6F, -0.8F}));
}

TEST(Lighting, AdditiveColourKeepsTheHueOfTheFace) {
    MaterialRecord grey = material();
    grey.Ambient = {0.5F, 0.5F, 0.5F};
    grey.Emissive = {0, 0, 0.125F};
    const ColorRGB added = additiveColor(grey);
    EXPECT_FLOAT_EQ(added.red, 0.125F);
    EXPECT_FLOAT_EQ(added.green, 0.0625F);
    EXPECT_FLOAT_EQ(added.blue, 0.375F);
    EXPECT_FLOAT_EQ(lit(grey, {1, 0, 0}).color[2], 0.375F);
    grey.Emissive = {2, -2, 0};
    EXPECT_EQ(lit(grey, {0, 0, -1}).color[0], 1);
    EXPECT_EQ(lit(grey, {0, 0, -1}).color[1], 0);
}

TEST(Lighting, FlatColourBlendsTowardTheSpecularColour) {
    const ColorRGB color = flatColor({0.5F, 1, -1}, 0.25F, {1, 0.2F, 0});
    EXPECT_FLOAT_EQ(color.red, (0.75F * 0.5F + 0.25F) * 255);
    EXPECT_FLOAT_EQ(color.green, (0.75F + 0.25F * 0.2F) * 255);
    EXPECT_EQ(color.blue, 0);
    EXPECT_EQ(flatColor({1, 1, 1}, 1, {9, 0, 0}).red, 255);
    const LitColor smooth = {{0.5F, 0.9F, 0}, 0.5F};
    const ColorRGB sum = smooth.withHighlight({1, 1, 0.5F});
    EXPECT_EQ(sum.red, 1);
    EXPECT_EQ(sum.green, 1);
    EXPECT_FLOAT_EQ(sum.blue, 0.25F);
}

} // namespace
} // namespace korvane
