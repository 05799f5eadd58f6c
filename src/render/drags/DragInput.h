#pragma once

#include <cmath>

namespace korvane {

/// The mouse buttons as drags tell them apart.
enum class DragButton { Left, Right, Middle, Other };

/// A mouse event of a view: positions are device pixels.
struct DragInput {
    DragButton button = DragButton::Other; ///< the button pressed; moves and releases ignore it
    float x = 0.0F;
    float y = 0.0F;
};

/// The device pixel of a control that a place is at, in one direction. The place and the control's
/// corner are those in the window, in units of so many device pixels. The mouse is on a whole pixel
/// of the window, which need not be a whole one from the corner: each is rounded for itself.
inline float devicePixel(double place, double corner, double ratio) {
    const auto nearest = [ratio](double at) { return std::floor(at * ratio + 0.5); };
    return static_cast<float>(nearest(place) - nearest(corner));
}

/// What one turn of the wheel by so many notches, forward being positive, makes of a scale.
inline float wheelFactor(float notches) {
    constexpr float factorANotch = 1.15F;
    return std::pow(factorANotch, notches);
}

} // namespace korvane
