#include "model/PolygonList.h"

#include "model/Reserve.h"

#include <limits>
#include <stdexcept>

namespace korvane {

void PolygonList::push_back(std::span<const std::uint32_t> corners) {
    indices_.insert(indices_.end(), corners.begin(), corners.end());
    closePolygon();
}

void PolygonList::closePolygon() {
    if (indices_.size() > std::numeric_limits<std::uint32_t>::max()) {
        dropOpenPolygon();
        throw std::length_error("polygon list");
    }
    ends_.push_back(static_cast<std::uint32_t>(indices_.size()));
}

void PolygonList::reserveMore(std::size_t polygons, std::size_t corners) {
    korvane::reserveMore(ends_, polygons);
    korvane::reserveMore(indices_, corners);
}

void PolygonList::clear() {
    ends_.clear();
    indices_.clear();
}

} // namespace korvane
