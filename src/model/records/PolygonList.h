#pragma once

#include "model/records/ListRoom.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace korvane {

/// A list of polygons, each a list of indices. Stored in two flat arrays, so that a mesh of a
/// million faces takes two allocations. Indices are not checked: check before using one.
class PolygonList {
  public:
    [[nodiscard]] std::size_t size() const { return ends_.size(); }
    [[nodiscard]] bool empty() const { return ends_.empty(); }

    /// The corners of polygon i (i < size()); valid until the list changes.
    [[nodiscard]] std::span<const std::uint32_t> operator[](std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : ends_[i - 1];
        return {indices_.data() + begin, ends_[i] - begin};
    }

    /// The corners of polygon i and all later ones in a row; valid as above.
    [[nodiscard]] std::span<const std::uint32_t> cornersFrom(std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : i < ends_.size() ? ends_[i - 1] : indices_.size();
        return std::span(indices_).subspan(begin);
    }

    /// Appends one polygon. Throws std::length_error past 2^32 - 1 indices in all.
    void push_back(std::span<const std::uint32_t> corners);

    /// Adds corners to the polygon being built and returns them for the caller to fill in; valid
    /// until the list changes. closePolygon() adds that polygon to the list, dropOpenPolygon()
    /// discards it.
    std::span<std::uint32_t> openCorners(std::size_t count) {
        indices_.resize(indices_.size() + count);
        return {indices_.data() + indices_.size() - count, count};
    }
    void closePolygon() {
        if (indices_.size() > std::numeric_limits<std::uint32_t>::max()) {
            refuseOpenPolygon();
        }
        ends_.push_back(static_cast<std::uint32_t>(indices_.size()));
    }
    void dropOpenPolygon() { indices_.resize(closedEnd()); }

    /// Makes room for more polygons with that many corners in total.
    void reserveMore(std::size_t polygons, std::size_t corners);
    void clear();

    bool operator==(const PolygonList&) const = default;

  private:
    [[noreturn]] void refuseOpenPolygon();
    [[nodiscard]] std::size_t closedEnd() const { return ends_.empty() ? 0 : ends_.back(); }

    std::vector<std::uint32_t> ends_; ///< for each polygon, the end of its run in indices_
    std::vector<std::uint32_t> indices_;
};

} // namespace korvane
