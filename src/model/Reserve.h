#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace korvane {

/// Makes room for more elements. A list that is added to over and over still grows geometrically.
template <class Element>
void reserveMore(std::vector<Element>& list, std::size_t more) {
    const std::size_t needed = list.size() + more;
    if (needed > list.capacity()) {
        list.reserve(list.empty() ? needed : std::max(needed, 2 * list.capacity()));
    }
}

} // namespace korvane
