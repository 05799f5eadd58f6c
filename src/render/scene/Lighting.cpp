#include "render/scene/Lighting.h"

#include <cmath>

namespace korvane {

// Exporters give nearly every material an ambient of (0.5, 0.5, 0.5), meaning the share of a
// scene's dim ambient light that the surface reflects. Added unchanged it would bleach every model
// to grey. Half of it, times the face colour, lifts the sides that turn away and keeps the hue.
ColorRGB additiveColor(const MaterialRecord& material) {
    constexpr float ambientLight = 0.5F;
    const ColorRGBA& face = material.FaceColor;
    return {material.Emissive.red + ambientLight * material.Ambient.red * face.red,
            material.Emissive.green + ambientLight * material.Ambient.green * face.green,
            material.Emissive.blue + ambientLight * material.Ambient.blue * face.blue};
}

SurfaceColors::SurfaceColors(const MaterialRecord& material)
    : face{material.FaceColor.red, material.FaceColor.green, material.FaceColor.blue},
      additive(additiveColor(material)), emissive(material.Emissive), specular(material.Specular),
      power(material.Power), noHighlight(power > 0 ? std::exp2(-16.0F / power) : 0.0F) {}

Vec3 halfVector(const Vec3& light, const Vec3& eye) {
    return {(light.x + eye.x) * 0.5F, (light.y + eye.y) * 0.5F, (light.z + eye.z) * 0.5F};
}

ColorRGB flatColor(const ColorRGB& meanColor, float meanSpecular, const ColorRGB& specularColor) {
    const float s = meanSpecular;
    const auto channel = [s](float mean, float specular) {
        return clampUnit((1 - s) * mean + s * specular) * 255;
    };
    return {channel(meanColor.red, specularColor.red),
            channel(meanColor.green, specularColor.green),
            channel(meanColor.blue, specularColor.blue)};
}

} // namespace korvane
