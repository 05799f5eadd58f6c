#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace korvane {

/// Makes room for more elements, so that adding them cannot fail. Repeated calls still grow the
/// list geometrically.
template <class Element>
void reserveMore(std::vector<Element>& list, std::size_t more) {
    const std::size_t needed = list.size() + more;
    if (needed > list.capacity()) {
        list.reserve(list.empty() ? needed : std::max(needed, 2 * list.capacity()));
    }
}

/// The iterator for a position in a list, or its end if the position lies past that.
template <class Element>
auto placeIn(std::vector<Element>& list, std::size_t position) {
    return list.begin() + static_cast<std::ptrdiff_t>(std::min(position, list.size()));
}

} // namespace korvane
