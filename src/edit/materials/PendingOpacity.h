#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>

namespace korvane {

/// Opacity and shininess follow the user's hand: each step writes the material at once, and only
/// when something else is done is one entry recorded for all of them. One object serves each of the
/// two values of the material that is being edited.
class PendingOpacity {
  public:
    /// Remembers the opacity that the next entry starts from, with nothing pending.
    void start(float opacity) {
        remembered_ = opacity;
        pending_ = false;
    }
    /// The user has changed the material's opacity.
    void change() { pending_ = true; }
    /// Records what is pending, if the material's opacity differs from the remembered one, which it
    /// then becomes.
    void commit(EditHistory& history, ModelDocument& document, std::size_t material);

  private:
    float remembered_ = 0.0F;
    bool pending_ = false;
};

} // namespace korvane
