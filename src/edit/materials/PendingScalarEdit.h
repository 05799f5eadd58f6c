#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>
#include <string>
#include <utility>

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

/// The same for the shininess, whose start is remembered as the text of its field.
class PendingShininess {
  public:
    /// The text of the field and the power that it shows.
    void start(std::string text, float power) {
        remembered_ = std::move(text);
        power_ = power;
        pending_ = false;
    }
    void change() { pending_ = true; }
    /// Records what is pending, if the field's text differs from the remembered one, which it then
    /// becomes, and the material's power from the number that the remembered one was. A text that
    /// is no power stands for that which the material had then.
    void commit(EditHistory& history, ModelDocument& document, std::size_t material,
                const std::string& text);

  private:
    std::string remembered_;
    float power_ = 0.0F; ///< of the material when the text was remembered
    bool pending_ = false;
};

} // namespace korvane
