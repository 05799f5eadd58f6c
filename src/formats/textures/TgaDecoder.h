#pragma once

#include "formats/textures/Decoding.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// Decodes a Truevision TGA picture: true colour, uncompressed, with 16, 24 or 32 bits a pixel. The
/// fourth byte of a pixel is ignored: alpha is 255.
DecodedTexture decodeTga(std::span<const std::uint8_t> bytes,
                         std::size_t maxPixels = maxPicturePixels);

} // namespace korvane
