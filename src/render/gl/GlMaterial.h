#pragma once

#include "render/gl/GlTextures.h"
#include "render/scene/DrawMaterials.h"

#include <array>
#include <cstdint>

namespace korvane {

/// The values of one material slot in OpenGL's terms.
struct GlMaterial {
    GlMaterial(const DrawMaterial& material, const GlTextures& textures);

    /// Sets the material, its texture and its colour in the current context.
    void apply() const;

    std::array<float, 4> ambient;
    std::array<float, 4> diffuse; ///< with the opacity
    std::array<float, 4> emission;
    std::array<float, 4> specular; ///< black where the material has no highlight
    float shininess;
    std::uint32_t texture; ///< 0 for none
};

} // namespace korvane
