#include "edit/materials/PendingOpacity.h"

#include "edit/history/MaterialEdits.h"

#include <utility>

namespace korvane {

void PendingOpacity::commit(EditHistory& history, ModelDocument& document, std::size_t material) {
    if (!std::exchange(pending_, false) || material >= document.Materials.size()) {
        return;
    }
    const float current = document.Materials[material].FaceColor.alpha;
    const float before = std::exchange(remembered_, current);
    if (before != current) {
        recordOpacity(history, document, material, before, current);
    }
}

} // namespace korvane
