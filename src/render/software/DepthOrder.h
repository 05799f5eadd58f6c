#pragma once

#include <bit>
#include <cstdint>
#include <vector>

namespace korvane {

/// An entry of a list to be sorted by depth.
struct DepthKey {
    /// The depth must not be NaN.
    DepthKey(float depth, std::uint32_t entryIndex) : index(entryIndex) {
        // positive floats order like their bits, negative ones in reverse
        const auto bits = std::bit_cast<std::uint32_t>(depth + 0.0F);
        order = (bits & 0x80000000U) != 0 ? bits : ~bits & 0x7fffffffU;
    }

    std::uint32_t order; ///< the farther, the smaller
    std::uint32_t index;
};

/// Sorts the entries, which come with ascending indices, by descending depth; equal depths keep
/// their order. Takes linear time and allocates nothing once `scratch` has grown.
void orderFarToNear(std::vector<DepthKey>& keys, std::vector<DepthKey>& scratch);

} // namespace korvane
