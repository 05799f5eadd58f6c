#pragma once

#include "model/records/MaterialRecord.h"
#include "render/math/Power.h"
#include "render/math/VectorMath.h"

#include <algorithm>

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
        t = t > noHighlight && power != 0 ? positivePower(t, power) : 0.0F;
        const float d = clampUnit(normalLight);
        return {{clampUnit(face.red * d + additive.red), clampUnit(face.green * d + additive.green),
                 clampUnit(face.blue * d + additive.blue)},
                clampUnit(t)};
    }

    ColorRGB face;
    ColorRGB additive;
    ColorRGB emissive; ///< the part of the additive colour that needs no light
    ColorRGB specular;
    float power;
    /// Products with the half vector up to this give no highlight that 16 bits could show.
    float noHighlight;
};

/// Where light comes from and how the eye looks, all in the space that normals are given in.
struct LightDirections {
    Vec3 light; ///< to the light
    Vec3 half;  ///< halfway to the eye; deliberately not normalised
    Vec3 depth; ///< that the eye looks in
};

/// The half vector of a light direction and a view vector.
Vec3 halfVector(const Vec3& light, const Vec3& eye);

/// Lights a corner with the normal. With `flipNormals` a normal that points away from the eye is
/// turned round first.
inline LitColor lightNormal(const Vec3& normal, const LightDirections& directions,
                            const SurfaceColors& surface, bool flipNormals) {
    // in single precision: this runs for every normal of every picture
    const auto dot = [&normal](const Vec3& v) {
        return normal.x * v.x + normal.y * v.y + normal.z * v.z;
    };
    const float sign = flipNormals && dot(directions.depth) > 0 ? -1.0F : 1.0F;
    return surface.lit(sign * dot(directions.light), sign * dot(directions.half));
}

/// The one colour of a face in flat shading, channels 0 to 255, from the means of its corners.
ColorRGB flatColor(const ColorRGB& meanColor, float meanSpecular, const ColorRGB& specularColor);

} // namespace korvane
