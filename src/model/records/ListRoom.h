#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace korvane {

/// Makes room for so many more elements, so that they cannot fail to come in. Grows as lists do.
template <class Element>
void makeRoom(std::vector<Element>& list, std::size_t more) {
    if (list.capacity() - list.size() < more) {
        list.reserve(std::max(list.size() + more, 2 * list.size()));
    }
}

/// The place of a position in a list, its end for those past it.
template <class Element>
auto placeIn(std::vector<Element>& list, std::size_t position) {
    return list.begin() + static_cast<std::ptrdiff_t>(std::min(position, list.size()));
}

} // namespace korvane
