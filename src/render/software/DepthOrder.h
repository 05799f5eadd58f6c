#pragma once

#include <bit>
#include <cstdint>
#include <vector>

namespace korvane {

/// An entry of a list to be put in order by depth.
struct DepthKey {
    /// For an entry with the depth, any number but NaN.
    DepthKey(float depth, std::uint32_t entryIndex) : index(entryIndex) {
        // of positive floats the bits have the order of the numbers, of negative ones the reverse
        const auto bits = std::bit_cast<std::uint32_t>(depth + 0.0F);
        order = (bits & 0x80000000U) != 0 ? bits : ~bits & 0x7fffffffU;
    }

    std::uint32_t order; ///< the farther, the smaller
    std::uint32_t index;
};

/// Puts the entries into descending order of their depths; equal depths keep their order. In linear
/// time, without allocating once `scratch` has grown.
void orderFarToNear(std::vector<DepthKey>& keys, std::vector<DepthKey>& scratch);

} // namespace korvane
