#include "edit/materials/PendingOpacity.h"

#include "edit/history/MaterialEdits.h"

namespace korvane {

void PendingOpacity::commit(EditHistory& history, ModelDocument& document, std::size_t material) {
    if (!pending_ || material >= document.Materials.size()) {
        return;
    }
    const float current = document.Materials[material].FaceColor.alpha;
    if (remembered_ != current) {
        recordOpacity(history, document, material, remembered_, current);
    }
    start(current); // only now, so that a failed record is tried again
}

} // namespace korvane
