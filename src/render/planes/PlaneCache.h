#pragma once

#include "render/drags/ViewPlane.h"
#include "render/picture/LineDrawing.h"
#include "render/planes/MeshEdges.h"
#include "render/scene/DrawCache.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace korvane {

/// What the 2D views derive from a frame's mesh: its edges, and the pixels of its vertices in each
/// plane. Kept with the frame's DrawCache.
class PlaneCache : public ViewData {
  public:
    /// The mesh's edges, each once. Always pass the mesh of the cache's own frame.
    const std::vector<MeshEdge>& edges(const MeshRecord& mesh);

    /// Brings points() up to date for the mapping. Returns true if they had to be computed. `cache`
    /// must be the frame's and up to date.
    bool project(const PlaneMapping& mapping, const DrawCache& cache);
    /// The pixel of each vertex in the plane, or noPixel.
    [[nodiscard]] const std::vector<PixelPoint>& points(ViewPlane plane) const {
        return projections_[static_cast<std::size_t>(plane)].points;
    }

  private:
    struct Projection {
        std::optional<PlaneMapping> mapping; ///< the one that the points were computed with
        std::uint64_t buildCount = 0;        ///< of the drawing cache that the points come from
        std::vector<PixelPoint> points;
    };

    std::uint64_t shapeOfEdges_ = 0; ///< the mesh's revision for `edges_`; 0 before the first
    std::vector<MeshEdge> edges_;
    std::array<Projection, planeCount> projections_;
};

/// The plane cache in a frame's drawing cache.
inline PlaneCache& planeCache(DrawCache& cache) {
    return cache.derivedData().get<PlaneCache>();
}

} // namespace korvane
