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

/// Picks at one spot go through the frames there, one after the other and around.
class PickCycle {
  public:
    /// Where to look for frames: at the spot of the last pick, where the new one is as good as
    /// there.
    PickSpot settle(const PickSpot& spot);
    /// Which of the frames found there, the likeliest first, to select; nothing where there are
    /// none. A pick at another spot, or one where other frames show now, begins with the first.
    std::optional<FramePath> next(const std::vector<FramePath>& frames,
                                  const std::optional<FramePath>& selected);

  private:
    PickSpot spot_;
    bool again_ = false;
    std::vector<FramePath> frames_; ///< of the last pick
};

} // namespace korvane
