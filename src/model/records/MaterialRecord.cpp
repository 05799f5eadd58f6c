#include "model/records/MaterialRecord.h"

#include <array>
#include <functional>

namespace korvane {

namespace {

/// The numbers that sameMaterial() compares.
std::array<float, 14> comparedNumbers(const MaterialRecord& m) {
    return {m.FaceColor.red, m.FaceColor.green, m.FaceColor.blue, m.FaceColor.alpha,
            m.Power,         m.Specular.red,    m.Specular.green, m.Specular.blue,
            m.Emissive.red,  m.Emissive.green,  m.Emissive.blue,  m.Ambient.red,
            m.Ambient.green, m.Ambient.blue};
}

} // namespace

bool sameMaterial(const MaterialRecord& a, const MaterialRecord& b) {
    return comparedNumbers(a) == comparedNumbers(b) && a.HasTexture == b.HasTexture &&
           (!a.HasTexture || a.TextureFile == b.TextureFile);
}

std::size_t materialHash(const MaterialRecord& material) {
    // std::hash is equal for 0.0 and -0.0, as sameMaterial() needs
    std::size_t hash = material.HasTexture ? std::hash<std::string>{}(material.TextureFile) : 0;
    for (const float number : comparedNumbers(material)) {
        hash = hash * 1099511628211U + std::hash<float>{}(number);
    }
    return hash;
}

} // namespace korvane
