#pragma once

#include "formats/textures/Decoding.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// Decodes a Softimage PIC picture. If its data is cut short, the missing pixels are opaque white;
/// it is refused if even the longest runs could not fill the picture.
DecodedTexture decodePic(std::span<const std::uint8_t> bytes,
                         std::size_t maxPixels = maxPicturePixels);

} // namespace korvane
