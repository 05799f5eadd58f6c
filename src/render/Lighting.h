#pragma once

#include "model/MaterialRecord.h"
#include "render/VectorMath.h"

#include <algorithm>
#include <cmath>

namespace korvane {

/// The number in [0, 1]; 0 if it is none.
inline float clampUnit(float value) {
    return value > 0.0F ? std::min(value, 1.0F) : 0.0F;
}

/// The colour that a material adds to whatever light falls on it, the same in every view: what it
/// emits, and the ambient part.
ColorRGB additiveColor(const MaterialRecord& material);

/// What lighting makes of one corner: channels and intensity 0 to 1.
struct LitColor {
    ColorRGB color;
    float specular = 0.0F; ///< how much of the specular colour comes on top

    /// Both together, as smooth shading shows them: like OpenGL, the sum.
    [[nodiscard]] ColorRGB withHighlight(const ColorRGB& specularColor) const {
        return {clampUnit(color.red + specular * specularColor.red),
                clampUnit(color.green + specular * specularColor.green),
                clampUnit(color.blue + specular * specularColor.blue)};
    }
};

/// The values of a material that lighting needs, taken once a redraw.
struct SurfaceColors {
    explicit SurfaceColors(const MaterialRecord& material);

    /// Lights a corner by the scalar products of its normal with the light direction and with the
    /// half vector.
    [[nodiscard]] LitColor lit(float normalLight, float normalHalf) const {
        float t = std::min(normalHalf, 1.0F);
        t = t > noHighlight && power != 0 ? std::pow(t, power) : 0.0F;
        const float d = clampUnit(normalLight);
        return {{clampUnit(face.red * d + additive.red), clampUnit(face.green * d + additive.green),
                 clampUnit(face.blue * d + additive.blue)},
                clampUnit(t)};
    }

    ColorRGB face;
    ColorRGB additive;
    ColorRGB specular;
    float power;
    /// Products with the half vector up to this give no highlight that 16 bits could show.
    float noHighlight;
};

/// The half vector of the lighting; deliberately not normalised.
Vec3 halfVector(const Vec3& light, const Vec3& eye);

/// Lights a corner in view space: sets its colour and specular intensity. With `flipNormals` a
/// normal that points away from the eye, which looks along +z, is turned round first.
void lightVertex(RenderVertex& vertex, const Vec3& light, const Vec3& eye,
                 const SurfaceColors& surface, bool flipNormals);

/// The one colour of a face in flat shading, channels 0 to 255, from the means of its corners.
ColorRGB flatColor(const ColorRGB& meanColor, float meanSpecular, const ColorRGB& specularColor);

} // namespace korvane
