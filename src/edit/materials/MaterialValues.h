#pragma once

#include "model/records/Color.h"
#include "model/records/TextureImage.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// Conversions between the values of a material and the material editor's controls. Values shown are
// truncated, so that converting back may lose a step: write back only what the user sets.

/// Converts a screen colour to a model colour, ignoring alpha.
ColorRGB modelColor(Rgba8 color);
/// Converts a model colour to an opaque screen colour, clamping channels to 0 and 1.
Rgba8 shownColor(const ColorRGB& color);

/// The opacity bar has positions from 0 to this.
inline constexpr std::int32_t lastOpacityPosition = 100;

/// The opacity, 0 to 1, at a position of the bar.
float opacityAt(std::int32_t position);
/// The position of the bar for an opacity, truncated and clamped. All but two positions survive the
/// conversion to an opacity and back.
std::int32_t opacityPosition(float opacity);

/// A power as text, independent of the locale. powerOf() returns exactly that power.
std::string powerText(float power);
/// Parses a power, ignoring surrounding blanks; nothing unless it is a finite number of at least 0.
std::optional<float> powerOf(std::string_view text);

} // namespace korvane
