#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>
#include <string>
#include <utility>

namespace korvane {

/// Like PendingOpacity, for the shininess. Also remembers the text of its field.
class PendingShininess {
  public:
    /// Remembers the text of the field and the power that it shows.
    void start(std::string text, float power) {
        remembered_ = std::move(text);
        power_ = power;
        pending_ = false;
    }
    void change() { pending_ = true; }
    /// Records one step if both the text and the power changed since start(), then starts again.
    /// The old power is the number in the old text, or the power from start() if that is no number.
    /// If only one of them changed, restores the power from start() bit by bit.
    void commit(EditHistory& history, ModelDocument& document, std::size_t material,
                const std::string& text);

  private:
    std::string remembered_;
    float power_ = 0.0F; ///< of the material at start()
    bool pending_ = false;
};

} // namespace korvane
