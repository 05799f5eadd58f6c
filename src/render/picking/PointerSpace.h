#pragma once

#include "model/records/MeshRecord.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

/// A point seen from the pointer, which looks along the z axis: it shows x / z pixels to the left
/// and y / z above, at the depth z.
struct PointerPoint {
    float x;
    float y;
    float z;
    /// One bit for each side beyond the reach that the point lies on. If all corners of a shape
    /// share a bit, the whole shape is out of reach.
    std::uint32_t beyond;
};

/// The depths that the view shows.
struct DepthRange {
    float nearest;
    float farthest;
};

/// Collects the vertices of a mesh as seen from the pointer and finds the faces and lines there.
/// Ignores a face with a corner that leads nowhere or that cannot be drawn.
class PointerSpace {
  public:
    /// `reach` is the largest distance from the pointer that counts, in pixels.
    PointerSpace(DepthRange depth, float reach) : depth_(depth), reach_(reach) {}

    void clear(std::size_t vertices) {
        points_.clear();
        points_.reserve(vertices);
    }
    void add(float x, float y, float z);

    /// Whether the face may be in reach.
    [[nodiscard]] bool reaches(std::span<const std::uint32_t> corners) const;
    /// The least depth of a face right under the pointer, if within the range. `sides` says which
    /// sides show: below 0 those with anticlockwise corners, above 0 those with clockwise ones, 0
    /// both.
    [[nodiscard]] std::optional<double> depthUnder(std::span<const std::uint32_t> corners,
                                                   int sides) const;
    /// The distance in pixels to the nearest edge of a face, if one lies within range and reach.
    [[nodiscard]] std::optional<double> lineDistance(std::span<const std::uint32_t> corners) const;

  private:
    [[nodiscard]] std::optional<double> distanceTo(const PointerPoint& a,
                                                   const PointerPoint& b) const;

    DepthRange depth_;
    float reach_;
    std::vector<PointerPoint> points_;
};

} // namespace korvane
