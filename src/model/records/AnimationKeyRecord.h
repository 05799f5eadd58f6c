#pragma once

#include <cstdint>
#include <vector>

namespace korvane {

/// One key of a frame's animation. The frame's key type decides the number of values.
struct AnimationKeyRecord {
    std::int32_t Time = 0;
    std::vector<float> Values;

    bool operator==(const AnimationKeyRecord&) const = default;
};

} // namespace korvane
