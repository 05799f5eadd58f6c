#pragma once

#include "render/LineDrawing.h"
#include "render/MeshEdges.h"
#include "render/ViewPlane.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

/// What the 2D views derive from a frame's mesh: its lines, and for each plane where its vertices
/// show. A part of the frame's DrawCache, which drops it when the lists of the mesh change.
class PlaneCache {
  public:
    /// The lines around the mesh's faces, each once; the mesh is the same each time.
    const std::vector<MeshEdge>& edges(const MeshRecord& mesh);

    /// Makes points() hold for the vertices, given in world space, as the mapping shows them. True
    /// if they had to be worked out.
    bool project(const PlaneMapping& mapping, std::span<const Vec3> world);
    /// The pixel of each vertex in the plane, or noPixel.
    [[nodiscard]] const std::vector<PixelPoint>& points(ViewPlane plane) const {
        return projections_[static_cast<std::size_t>(plane)].points;
    }
    /// The vertices have moved in world space.
    void forgetPoints();

  private:
    struct Projection {
        std::optional<PlaneMapping> mapping; ///< that the points hold for
        std::vector<PixelPoint> points;
    };

    std::optional<std::vector<MeshEdge>> edges_; ///< made when first asked for
    std::array<Projection, planeCount> projections_;
};

} // namespace korvane
