#pragma once

#include "model/records/MaterialRecord.h"
#include "model/records/MeshRecord.h"
#include "render/scene/Lighting.h"
#include "render/scene/ViewState.h"

#include <cstddef>
#include <span>
#include <vector>

namespace korvane {

/// Whether the material has a picture to draw. The single white pixel that stands for a picture
/// that failed to load is none, as it would change nothing.
bool hasPicture(const MaterialRecord& material);

/// Whether faces of the material go to the translucent pass: only smooth shading blends.
bool isTranslucent(const MaterialRecord& material, const ViewState& state);

/// The opacity to draw the material with, 0 to 1.
float shownOpacity(const MaterialRecord& material, const ViewState& state);

/// The slot of a face, which may lead nowhere: the last slot for faces without an entry, -1 in a
/// mesh without materials.
inline std::int64_t slotOfFace(const MeshRecord& mesh, std::size_t face) {
    if (!mesh.HasMaterials) {
        return -1;
    }
    return face < mesh.FaceSlotIndex.size()
               ? std::int64_t{mesh.FaceSlotIndex[face]}
               : static_cast<std::int64_t>(mesh.MaterialSlotList.size()) - 1;
}

/// The material of a face in the document's table, or null if its slot leads nowhere.
const MaterialRecord* materialOfFace(const MeshRecord& mesh, std::size_t face,
                                     std::span<const MaterialRecord> table);

/// The indices of a face's texture coordinates, one a corner; empty unless all are valid.
std::span<const std::uint32_t> textureCorners(const MeshRecord& mesh, std::size_t face,
                                              std::size_t corners);

/// A material prepared for drawing, once a redraw.
struct DrawMaterial {
    DrawMaterial(const MaterialRecord& material, const ViewState& state);

    SurfaceColors colors;
    const TextureImage* image = nullptr; ///< null without a picture
    bool textured;
    bool translucent;
    float opacity; ///< 0 to 1
};

/// The materials of a document, and by slot those of the selected mesh. The textures of the
/// material records must outlive this.
class DrawMaterials {
  public:
    /// Takes the document's table for one redraw.
    void take(std::span<const MaterialRecord> table, const ViewState& state);
    /// Finds the materials of a mesh's slots.
    void select(const MeshRecord& mesh);

    /// The number of the mesh's slots, plus one for faces that lead nowhere.
    [[nodiscard]] std::size_t slotCount() const { return slots_.size(); }
    /// The slot of a face, below slotCount().
    [[nodiscard]] std::size_t slot(const MeshRecord& mesh, std::size_t face) const {
        const std::int64_t slot = slotOfFace(mesh, face);
        const std::size_t nowhere = slots_.size() - 1;
        return slot >= 0 && slot < static_cast<std::int64_t>(nowhere)
                   ? static_cast<std::size_t>(slot)
                   : nowhere;
    }
    [[nodiscard]] const DrawMaterial& operator[](std::size_t slot) const { return *slots_[slot]; }
    /// Whether some slot of the mesh is (not) translucent.
    [[nodiscard]] bool any(bool translucent) const;

  private:
    std::vector<DrawMaterial> table_; ///< the last one is a default material
    std::vector<const DrawMaterial*> slots_;
    bool usesNowhere_ = true; ///< whether some face may lead nowhere
};

} // namespace korvane
