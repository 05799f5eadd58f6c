#pragma once

#include "model/records/FrameRecord.h"
#include "render/gl/GlTextures.h"
#include "render/scene/DrawCache.h"
#include "render/scene/DrawMaterials.h"

#include <array>
#include <cstdint>
#include <vector>

namespace korvane {

/// The values of one material slot as OpenGL takes them.
struct GlMaterial {
    GlMaterial(const DrawMaterial& material, const GlTextures& textures);

    std::array<float, 4> ambient;
    std::array<float, 4> diffuse; ///< with the opacity
    std::array<float, 4> emission;
    std::array<float, 4> specular; ///< black where the material has no highlight
    float shininess;
    std::uint32_t texture; ///< 0 for none
    bool translucent;

    bool operator==(const GlMaterial&) const = default;
};

/// What a mesh is drawn as.
enum class GlShape { Opaque, Translucent, Outlines, Points };

/// The materials of all slots of the mesh selected.
std::vector<GlMaterial> glMaterials(const DrawMaterials& materials, const GlTextures& textures);

/// Hands the faces of a frame's mesh to the current context in the mesh's own space: triangle fans
/// slot by slot, or line loops or points in the current colour. The cache must be up to date.
void emitMesh(const FrameRecord& frame, const DrawCache& cache, GlShape shape,
              const DrawMaterials& slots, const std::vector<GlMaterial>& materials);

} // namespace korvane
