#pragma once

#include <cmath>

namespace korvane {

/// The mouse buttons that drags distinguish.
enum class DragButton { Left, Right, Middle, Other };

/// A mouse event in a view, in device pixels.
struct DragInput {
    DragButton button = DragButton::Other; ///< the button pressed; moves and releases ignore it
    float x = 0.0F;
    float y = 0.0F;
};

/// Converts a place in the window to a device pixel of a control, along one axis. The place and the
/// control's corner are in window units of `ratio` device pixels. Each is rounded on its own: the
/// mouse sits on a whole pixel of the window, the corner may not.
inline float devicePixel(double place, double corner, double ratio) {
    const auto nearest = [ratio](double at) { return std::floor(at * ratio + 0.5); };
    return static_cast<float>(nearest(place) - nearest(corner));
}

/// The factor by which a turn of the wheel scales. Notches forward are positive.
inline float wheelFactor(float notches) {
    constexpr float factorANotch = 1.15F;
    return std::pow(factorANotch, notches);
}

} // namespace korvane
