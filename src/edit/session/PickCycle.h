#pragma once

#include "model/records/FramePath.h"

#include <optional>
#include <vector>

namespace korvane {

/// A pixel of one of the views.
struct PickSpot {
    int view = 0;
    float x = 0.0F;
    float y = 0.0F;
};

/// Repeated picks at one spot cycle through the frames there.
class PickCycle {
  public:
    /// Returns where to look for frames: the spot of the last pick if the new one is close enough,
    /// else the new one.
    PickSpot settle(const PickSpot& spot);
    /// Returns which of the frames there to select, if any; they come with the likeliest first.
    /// Starts with the first one at a new spot, or if other frames show there now.
    std::optional<FramePath> next(const std::vector<FramePath>& frames,
                                  const std::optional<FramePath>& selected);

  private:
    PickSpot spot_;
    bool again_ = false;
    std::vector<FramePath> frames_; ///< of the last pick
};

} // namespace korvane
