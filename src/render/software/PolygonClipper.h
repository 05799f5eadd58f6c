#pragma once

#include "render/scene/ViewGeometry.h"

#include <cstddef>
#include <vector>

namespace korvane {

/// Cuts polygons at planes of view space. Holds the polygon being cut; polygons of any size fit,
/// and once the buffers have grown nothing is allocated.
class PolygonClipper {
  public:
    /// The polygon to cut, for the caller to fill.
    std::vector<RenderVertex>& polygon() { return polygon_; }

    /// Cuts the polygon at one plane if it is still visible: returns 1 if it is afterwards, else 0.
    /// What keeps fewer than two corners is dropped and left as it was.
    int polyclip(int visible, float nx, float ny, float nz, float d);

    /// Cuts the polygon at all planes of a view, in order; whether it is visible.
    bool clip(const ViewGeometry& geometry);

    /// The corner at t between the corners i (t = 0) and j (t = 1). The specular intensity is not
    /// interpolated, it is that of a new vertex.
    [[nodiscard]] RenderVertex lineclip(std::size_t i, std::size_t j, float t) const;

  private:
    std::vector<RenderVertex> polygon_;
    std::vector<RenderVertex> cut_;
    std::vector<float> distances_;
};

/// Cuts a line at all planes of a view; false if nothing is left of it.
bool clipLine(const ViewGeometry& geometry, Vec3& a, Vec3& b);

} // namespace korvane
