#pragma once

#include <cmath>

namespace korvane {

/// The mouse buttons as drags tell them apart.
enum class DragButton { Left, Right, Other };

/// A mouse event of a view: positions are device pixels.
struct DragInput {
    DragButton button = DragButton::Other; ///< the button pressed; moves and releases ignore it
    float x = 0.0F;
    float y = 0.0F;
};

/// What one turn of the wheel by so many notches, forward being positive, makes of a scale.
inline float wheelFactor(float notches) {
    constexpr float factorANotch = 1.15F;
    return std::pow(factorANotch, notches);
}

} // namespace korvane
