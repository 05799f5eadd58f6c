#include "edit/materials/PendingShininess.h"

#include "edit/history/MaterialEdits.h"
#include "edit/materials/MaterialValues.h"

#include <utility>

namespace korvane {

void PendingShininess::commit(EditHistory& history, ModelDocument& document, std::size_t material,
                              const std::string& text) {
    if (!pending_ || material >= document.Materials.size()) {
        return;
    }
    float& power = document.Materials[material].Power;
    const float before = powerOf(remembered_).value_or(power_);
    std::string shown = text;
    if (before == power || remembered_ == text) {
        // "-0" is an equal number but is saved as other bytes; and a text that is no number, typed
        // again, must not leave the power of what stood there meanwhile
        power = power_;
        ++document.LiveChanges;
    } else {
        recordPower(history, document, material, before, power);
    }
    start(std::move(shown), power); // only now, so that a failed record is tried again
}

} // namespace korvane
