#pragma once

#include <cstdint>
#include <vector>

namespace korvane {

/// One key of a frame's animation; how many values it carries follows from the frame's key type.
struct AnimationKeyRecord {
    std::int32_t Time = 0;
    std::vector<float> Values;

    bool operator==(const AnimationKeyRecord&) const = default;
};

} // namespace korvane
