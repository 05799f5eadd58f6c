#pragma once

#include "render/scene/DrawCache.h"
#include "render/scene/DrawMaterials.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

/// The drawable faces of a mesh, grouped by material slot; each group keeps the order of the mesh.
class FacesBySlot {
  public:
    FacesBySlot(const MeshRecord& mesh, const DrawMaterials& slots);

    [[nodiscard]] std::span<const std::uint32_t> operator[](std::size_t slot) const {
        return std::span(faces_).subspan(starts_[slot], starts_[slot + 1] - starts_[slot]);
    }

  private:
    std::vector<std::size_t> starts_; ///< of each slot in `faces_`, then the end of the last
    std::vector<std::uint32_t> faces_;
};

// These hand a mesh to the current context, in the mesh's own space. They interrupt a run of
// primitives as seldom as possible: a driver is several times slower with one call a face.

/// Hands over faces as triangle fans, with the current material. `textured` says whether a texture
/// is current; faces without coordinates for it turn it off for themselves. The cache must be up to
/// date.
void emitFaces(const MeshRecord& mesh, const DrawCache& cache, std::span<const std::uint32_t> faces,
               bool textured);
/// Hands over the edges of all faces, or their corners, in the current colour.
void emitEdges(const MeshRecord& mesh);
void emitCorners(const MeshRecord& mesh);

} // namespace korvane
