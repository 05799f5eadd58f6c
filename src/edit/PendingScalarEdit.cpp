#include "edit/PendingScalarEdit.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace korvane {

namespace {

/// The power that a text stands for, blind to the locale; the fallback where it is none.
float powerOf(const std::string& text, float fallback) {
    float number = 0.0F;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && number >= 0 ? number : fallback;
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
    const float start = powerOf(before, std::exchange(power_, current));
    if (before != text && start != current) {
        history.power(document, material, start, current);
    }
}

} // namespace korvane
