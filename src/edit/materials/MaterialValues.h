#pragma once

#include "model/records/Color.h"
#include "model/records/TextureImage.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// How the material editor shows the values of a material. What is shown is cut, not rounded, so
// that showing a value and taking it back may lose a step: only what the user sets is taken back.

/// The colour of the model for a colour of the screen; alpha takes no part.
ColorRGB modelColor(Rgba8 color);
/// The colour of the screen for a colour of the model, opaque; channels beyond 0 to 1 count as
/// these.
Rgba8 shownColor(const ColorRGB& color);

/// Positions of the opacity bar.
inline constexpr std::int32_t lastOpacityPosition = 100;

/// The opacity, 0 to 1, of a position of the bar.
float opacityAt(std::int32_t position);
/// The position of the bar for an opacity: of two the lower one, and within the bar. All but two of
/// the positions come back from their opacity.
std::int32_t opacityPosition(float opacity);

/// A power as text, blind to the locale, which powerOf() gives back exactly.
std::string powerText(float power);
/// The power that a text stands for, with blanks around it or not; nothing where it is no finite
/// number of at least 0.
std::optional<float> powerOf(std::string_view text);

} // namespace korvane
