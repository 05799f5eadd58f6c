#pragma once

#include "formats/textures/Decoding.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// Decodes a picture with Qt: `format` is "BMP" or "ICO" and is not guessed. Alpha is 255.
DecodedTexture decodeWithQt(std::span<const std::uint8_t> bytes, const char* format,
                            std::size_t maxPixels = maxPicturePixels);

} // namespace korvane
