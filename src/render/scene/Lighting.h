#pragma once

#include "model/records/MaterialRecord.h"
#include "render/math/Power.h"
#include "render/math/VectorMath.h"

#include <algorithm>

namespace korvane {

/// Clamps to [0, 1]; NaN returns 0.
inline float clampUnit(float value) {
    return value > 0.0F ? std::min(value, 1.0F) : 0.0F;
}

/// The colour that a material shows in any light, the same in every view: its emission and the
/// ambient part.
ColorRGB additiveColor(const MaterialRecord& material);

/// The lighting of one corner: channels and intensity 0 to 1.
struct LitColor {
    ColorRGB color;
    float specular = 0.0F; ///< the share of the specular colour to add

    /// The sum of both for smooth shading, as in OpenGL.
    [[nodiscard]] ColorRGB withHighlight(const ColorRGB& specularColor) const {
        return {clampUnit(color.red + specular * specularColor.red),
                clampUnit(color.green + specular * specularColor.green),
                clampUnit(color.blue + specular * specularColor.blue)};
    }
};

/// The values of a material that lighting needs, prepared once a redraw.
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
    ColorRGB emissive; ///< the emitted part of the additive colour
    ColorRGB specular;
    float power;
    /// Products with the half vector up to this make a highlight of 2^-16 at most: none is drawn.
    float noHighlight;
};

/// The directions of the light and the eye, in the same space as the normals.
struct LightDirections {
    Vec3 light; ///< to the light
    Vec3 half;  ///< halfway to the eye; deliberately not normalised
    Vec3 depth; ///< the direction in which the eye looks
};

/// The half vector of a light direction and a view vector.
Vec3 halfVector(const Vec3& light, const Vec3& eye);

/// Lights a corner by its normal. `flipNormals` first reverses a normal that points away from the
/// eye.
inline LitColor lightNormal(const Vec3& normal, const LightDirections& directions,
                            const SurfaceColors& surface, bool flipNormals) {
    // single precision, as this runs for every normal of every picture
    const auto dot = [&normal](const Vec3& v) {
        return normal.x * v.x + normal.y * v.y + normal.z * v.z;
    };
    const float sign = flipNormals && dot(directions.depth) > 0 ? -1.0F : 1.0F;
    return surface.lit(sign * dot(directions.light), sign * dot(directions.half));
}

/// A face's colour in flat shading, channels 0 to 255, from the means of its corners.
ColorRGB flatColor(const ColorRGB& meanColor, float meanSpecular, const ColorRGB& specularColor);

} // namespace korvane
