#include "edit/session/PickCycle.h"

#include <algorithm>
#include <cmath>

namespace korvane {

PickSpot PickCycle::settle(const PickSpot& spot) {
    constexpr float samePlace = 3.0F; // pixels
    again_ = spot.view == spot_.view && std::hypot(spot.x - spot_.x, spot.y - spot_.y) <= samePlace;
    spot_ = again_ ? spot_ : spot;
    return spot_;
}

std::optional<FramePath> PickCycle::next(const std::vector<FramePath>& frames,
                                         const std::optional<FramePath>& selected) {
    const bool continues = again_ && frames == frames_ && selected;
    frames_ = frames;
    if (frames.empty()) {
        return std::nullopt;
    }
    const auto at = continues ? std::find(frames.begin(), frames.end(), *selected) : frames.end();
    return at == frames.end() || at + 1 == frames.end() ? frames.front() : at[1];
}

} // namespace korvane
