#pragma once

#include "model/records/MeshRecord.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

/// A point as seen from the pointer: it shows x / z pixels to the left of it and y / z above, at
/// the depth z. The pointer looks along the z axis.
struct PointerPoint {
    float x;
    float y;
    float z;
    /// Bits of the sides that the point lies to beyond the reach: what has a bit in all its corners
    /// is out of reach as a whole.
    std::uint32_t beyond;
};

/// How deep the view shows.
struct DepthRange {
    float nearest;
    float farthest;
};

/// Collects the vertices of a mesh as seen from the pointer, and finds what of it is there. A face
/// with a corner that leads nowhere, or to a place that cannot be drawn, is nowhere.
class PointerSpace {
  public:
    /// `reach` is how far from the pointer things still count, in pixels.
    PointerSpace(DepthRange depth, float reach) : depth_(depth), reach_(reach) {}

    void clear(std::size_t vertices) {
        points_.clear();
        points_.reserve(vertices);
    }
    void add(float x, float y, float z);

    /// Whether the face may be in reach.
    [[nodiscard]] bool reaches(std::span<const std::uint32_t> corners) const;
    /// The depth of the nearest place of a face right under the pointer, if that is within the
    /// range. `sides` tells which sides show: below 0 those whose corners run anticlockwise, above
    /// 0 those that run clockwise, 0 both.
    [[nodiscard]] std::optional<double> depthUnder(std::span<const std::uint32_t> corners,
                                                   int sides) const;
    /// How many pixels the nearest line around a face is away, if one shows within the range and
    /// the reach.
    [[nodiscard]] std::optional<double> lineDistance(std::span<const std::uint32_t> corners) const;

  private:
    [[nodiscard]] std::optional<double> distanceTo(const PointerPoint& a,
                                                   const PointerPoint& b) const;

    DepthRange depth_;
    float reach_;
    std::vector<PointerPoint> points_;
};

} // namespace korvane
