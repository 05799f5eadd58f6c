#pragma once

#include "render/scene/DrawCache.h"
#include "render/scene/DrawMaterials.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

/// The faces of a mesh that can be drawn, by the slots of their materials, in the order of the mesh
/// within each.
class FacesBySlot {
  public:
    FacesBySlot(const MeshRecord& mesh, const DrawMaterials& slots);

    [[nodiscard]] std::span<const std::uint32_t> operator[](std::size_t slot) const {
        return std::span(faces_).subspan(starts_[slot], starts_[slot + 1] - starts_[slot]);
    }

  private:
    std::vector<std::size_t> starts_; ///< of each slot in `faces_`, with the end of the last
    std::vector<std::uint32_t> faces_;
};

// These hand a mesh to the current context, in the mesh's own space and with as few interruptions
// as can be: a run of one kind costs a driver a fraction of what one call a face costs.

/// Hands over faces as the triangles of their fans. The material is the current one; `textured`
/// tells whether its texture is, which faces without coordinates for it turn off for themselves.
/// The cache must be up to date.
void emitFaces(const MeshRecord& mesh, const DrawCache& cache, std::span<const std::uint32_t> faces,
               bool textured);
/// Hands over the edges of all faces, or their corners, in the current colour.
void emitEdges(const MeshRecord& mesh);
void emitCorners(const MeshRecord& mesh);

} // namespace korvane
