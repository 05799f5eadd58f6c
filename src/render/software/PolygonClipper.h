#pragma once

#include "render/scene/ViewGeometry.h"

#include <cstddef>
#include <vector>

namespace korvane {

/// Cuts polygons of any size at planes of view space. Holds the polygon being cut and allocates
/// nothing once its buffers have grown.
class PolygonClipper {
  public:
    /// The polygon to cut, for the caller to fill.
    std::vector<RenderVertex>& polygon() { return polygon_; }

    /// Cuts the polygon at one plane if `visible` is 1. Returns 1 if anything is left, else 0. A
    /// polygon left with fewer than two corners counts as invisible and is not changed.
    int polyclip(int visible, float nx, float ny, float nz, float d);

    /// Cuts the polygon at all planes of a view, in order. Returns whether it is visible.
    bool clip(const ViewGeometry& geometry);

    /// The corner at t between the corners i (t = 0) and j (t = 1). The specular intensity is not
    /// interpolated but that of a new vertex.
    [[nodiscard]] RenderVertex lineclip(std::size_t i, std::size_t j, float t) const;

  private:
    std::vector<RenderVertex> polygon_;
    std::vector<RenderVertex> cut_;
    std::vector<float> distances_;
};

/// Cuts a line at all planes of a view. Returns false if nothing is left.
bool clipLine(const ViewGeometry& geometry, Vec3& a, Vec3& b);

} // namespace korvane
