#pragma once

namespace korvane {

/// What a key means in a view.
enum class ViewKey {
    Left,
    Right,
    Up,
    Down,
    ZoomIn,
    ZoomOut,
    ShowModel, ///< whole and centred
    ShowFrame, ///< the same for the selected frame
};

constexpr bool isArrow(ViewKey key) {
    return key <= ViewKey::Down;
}

/// The direction of an arrow key, as steps to the right and up.
struct KeyWay {
    int right = 0;
    int up = 0;
};

constexpr KeyWay keyWay(ViewKey key) {
    switch (key) {
    case ViewKey::Left:
        return {-1, 0};
    case ViewKey::Right:
        return {1, 0};
    case ViewKey::Up:
        return {0, 1};
    case ViewKey::Down:
        return {0, -1};
    default:
        return {};
    }
}

} // namespace korvane
