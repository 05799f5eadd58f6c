#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace korvane {

/// Makes room for so many more elements, so that they cannot fail to come in. A list that is added
/// to over and over still grows geometrically.
template <class Element>
void reserveMore(std::vector<Element>& list, std::size_t more) {
    const std::size_t needed = list.size() + more;
    if (needed > list.capacity()) {
        list.reserve(list.empty() ? needed : std::max(needed, 2 * list.capacity()));
    }
}

/// The place of a position in a list, its end for those past it.
template <class Element>
auto placeIn(std::vector<Element>& list, std::size_t position) {
    return list.begin() + static_cast<std::ptrdiff_t>(std::min(position, list.size()));
}

} // namespace korvane
