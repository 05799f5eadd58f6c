#include "model/records/PolygonList.h"

#include <stdexcept>

namespace korvane {

void PolygonList::push_back(std::span<const std::uint32_t> corners) {
    indices_.insert(indices_.end(), corners.begin(), corners.end());
    closePolygon();
}

void PolygonList::refuseOpenPolygon() {
    dropOpenPolygon();
    throw std::length_error("polygon list");
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
