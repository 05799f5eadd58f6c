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

/// What the 2D views derive from a frame's mesh: its lines, and for each plane where its vertices
/// show. Kept with the frame's DrawCache.
class PlaneCache : public ViewData {
  public:
    /// The lines around the mesh's faces, each once; the mesh is that of the frame each time.
    const std::vector<MeshEdge>& edges(const MeshRecord& mesh);

    /// Makes points() hold for the vertices in world space as the mapping shows them. True if they
    /// had to be worked out. The drawing cache is that of the frame, and up to date.
    bool project(const PlaneMapping& mapping, const DrawCache& cache);
    /// The pixel of each vertex in the plane, or noPixel.
    [[nodiscard]] const std::vector<PixelPoint>& points(ViewPlane plane) const {
        return projections_[static_cast<std::size_t>(plane)].points;
    }

  private:
    struct Projection {
        std::optional<PlaneMapping> mapping; ///< that the points hold for
        std::uint64_t builds = 0;            ///< of the drawing cache that they were made from
        std::vector<PixelPoint> points;
    };

    std::uint64_t shapeOfEdges_ = 0; ///< the mesh's revision that they were made for, 0 before
    std::vector<MeshEdge> edges_;
    std::array<Projection, planeCount> projections_;
};

/// The plane cache that goes with a frame's drawing cache.
inline PlaneCache& planeCache(DrawCache& cache) {
    return cache.further().get<PlaneCache>();
}

} // namespace korvane
