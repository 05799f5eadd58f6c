#pragma once

#include "formats/textures/Decoding.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// A Softimage PIC picture. Where its data breaks off, the rest stays opaque white, unless so much
/// is missing that the longest runs could not make up for it.
DecodedTexture decodePic(std::span<const std::uint8_t> bytes,
                         std::size_t mostPixels = mostPicturePixels);

} // namespace korvane
