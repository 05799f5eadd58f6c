#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace korvane {

/// How many elements to make room for: as many as a file announces, but never more than its
/// remaining bytes could hold, since the count alone is not to be trusted.
inline std::size_t credible(std::int32_t announced, std::size_t possible) {
    return std::min(static_cast<std::size_t>(std::max(announced, 0)), possible);
}

} // namespace korvane
