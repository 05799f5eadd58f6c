#pragma once

#include "formats/textures/DecoderLimits.h"
#include "model/records/TextureImage.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// A picture that Qt reads: `format` is "BMP" or "ICO" and is not guessed. Alpha is 255.
/// Gives the 1 x 1 image for what it cannot decode, what memory cannot hold or what has more than
/// `mostPixels`, and allocates no picture that the bytes at hand could not fill.
TextureImage decodeWithQt(std::span<const std::uint8_t> bytes, const char* format,
                          std::size_t mostPixels = mostPicturePixels);

} // namespace korvane
