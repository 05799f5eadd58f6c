#pragma once

#include "model/records/Color.h"
#include "model/records/TextureImage.h"
#include "render/math/VectorMath.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace korvane {

/// One entry of the document's material table: the values of SI_Material and SI_Texture2D.
struct MaterialRecord {
    ColorRGBA FaceColor = {0.75F, 0.75F, 0.75F, 1.0F}; ///< alpha is the opacity
    float Power = 200.0F;                              ///< specular power
    ColorRGB Specular = {0.5F, 0.5F, 0.5F};
    ColorRGB Emissive;
    std::int32_t ShadingModel = 2;
    ColorRGB Ambient;

    bool HasTexture = false;
    std::string TextureFile; ///< as written in the file, without the part up to the last "/"
    std::int32_t MappingType = 4;
    std::int32_t ImageWidth = 0; ///< in pixels, from the model; the decoded image has its own size
    std::int32_t ImageHeight = 0;
    std::int32_t CropUMin = 0;
    std::int32_t CropUMax = 0;
    std::int32_t CropVMin = 0;
    std::int32_t CropVMax = 0;
    std::int32_t UVSwap = 0;
    std::int32_t RepeatU = 1;
    std::int32_t RepeatV = 1;
    std::int32_t AlternateU = 0;
    std::int32_t AlternateV = 0;
    float ScaleU = 1.0F;
    float ScaleV = 1.0F;
    float OffsetU = 0.0F;
    float OffsetV = 0.0F;
    Matrix4 Projection;
    std::int32_t BlendingType = 3;
    float Blending = 1.0F;
    float TexAmbient = 0.75F;
    float TexDiffuse = 1.0F;
    float TexSpecular = 0.0F;
    float Transparency = 0.0F;
    float Reflectivity = 0.0F;
    float Roughness = 0.0F;
    /// The decoded texture, shared by the materials that name the same file; never null.
    std::shared_ptr<const korvane::TextureImage> TextureImage = blankTextureImage();

    /// Compares all fields, images by identity; see also sameMaterial().
    bool operator==(const MaterialRecord&) const = default;
};

/// Whether two materials count as one: equal colours, opacity and power, and the same texture or
/// none. Deliberately ignores the shading model and the texture parameters.
bool sameMaterial(const MaterialRecord& a, const MaterialRecord& b);

/// A hash that agrees with sameMaterial.
std::size_t materialHash(const MaterialRecord& material);

} // namespace korvane
