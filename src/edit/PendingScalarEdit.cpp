#include "edit/PendingScalarEdit.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace korvane {

namespace {

/// The number that a text begins with, blind to the locale; the fallback where it is none.
float numberOf(const std::string& text, float fallback) {
    float number = 0.0F;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : fallback;
}

} // namespace

void PendingOpacity::commit(EditHistory& history, ModelDocument& document, std::size_t material) {
    if (!std::exchange(pending_, false) || material >= document.Materials.size()) {
        return;
    }
    const float current = document.Materials[material].FaceColor.alpha;
    const float before = std::exchange(remembered_, current);
    if (before != current) {
        history.opacity(document, material, before, current);
    }
}

void PendingShininess::commit(EditHistory& history, ModelDocument& document, std::size_t material,
                              const std::string& text) {
    if (!std::exchange(pending_, false) || material >= document.Materials.size()) {
        return;
    }
    const std::string before = std::exchange(remembered_, text);
    const float current = document.Materials[material].Power;
    const float start = numberOf(before, current);
    if (before != text && start != current) {
        history.power(document, material, start, current);
    }
}

} // namespace korvane
