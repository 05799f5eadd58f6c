#pragma once

#include <cstddef>

namespace korvane {

/// A face of a mesh, or one vertex of it.
struct FacePart {
    std::size_t face = 0;   ///< from 0
    std::size_t vertex = 0; ///< 0 for the whole face, else the vertex counted from 1

    bool operator==(const FacePart&) const = default;
};

} // namespace korvane
