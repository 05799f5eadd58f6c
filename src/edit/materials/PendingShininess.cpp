#include "edit/materials/PendingShininess.h"

#include "edit/history/MaterialEdits.h"
#include "edit/materials/MaterialValues.h"

#include <utility>

namespace korvane {

void PendingShininess::commit(EditHistory& history, ModelDocument& document, std::size_t material,
                              const std::string& text) {
    if (!std::exchange(pending_, false) || material >= document.Materials.size()) {
        return;
    }
    const std::string before = std::exchange(remembered_, text);
    const float current = document.Materials[material].Power;
    const float fallback = std::exchange(power_, current);
    const float start = powerOf(before).value_or(fallback);
    if (before != text && start != current) {
        recordPower(history, document, material, start, current);
    }
}

} // namespace korvane
