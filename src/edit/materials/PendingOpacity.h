#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>

namespace korvane {

/// Opacity and shininess follow the user's input: each change is written to the material at once,
/// and a run of changes is recorded as one entry when the user does something else. This class does
/// that for the opacity, PendingShininess for the shininess.
class PendingOpacity {
  public:
    /// Remembers the opacity as the next entry's old value; nothing is pending.
    void start(float opacity) {
        remembered_ = opacity;
        pending_ = false;
    }
    /// Call after changing the material's opacity.
    void change() { pending_ = true; }
    /// Records one step if the material's opacity changed since start(), then starts again.
    void commit(EditHistory& history, ModelDocument& document, std::size_t material);

  private:
    float remembered_ = 0.0F;
    bool pending_ = false;
};

} // namespace korvane
