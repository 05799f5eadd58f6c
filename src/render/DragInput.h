#pragma once

namespace korvane {

enum class DragButton { Left, Right, Other };

/// A mouse event of a view: positions are device pixels.
struct DragInput {
    DragButton button = DragButton::Other; ///< the button pressed; moves and releases ignore it
    float x = 0.0F;
    float y = 0.0F;
};

} // namespace korvane
