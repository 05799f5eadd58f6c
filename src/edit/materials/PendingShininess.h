#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>
#include <string>
#include <utility>

namespace korvane {

/// As PendingOpacity, for the shininess, whose start is remembered as the text of its field.
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
