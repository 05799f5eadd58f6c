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
    const float current = document.Materials[material].Power;
    const float before = powerOf(remembered_).value_or(power_);
    std::string shown = text;
    if (remembered_ != text && before != current) {
        recordPower(history, document, material, before, current);
    }
    start(std::move(shown), current); // only now: a record that fails is tried again
}

} // namespace korvane
