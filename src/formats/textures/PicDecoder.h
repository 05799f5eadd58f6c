#pragma once

#include "formats/textures/DecoderLimits.h"
#include "model/records/TextureImage.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// A Softimage PIC picture. Where its data breaks off, the rest stays opaque white, unless so much
/// is missing that the longest runs could not make up for it.
/// Gives the 1 x 1 image for what it cannot decode, what memory cannot hold or what has more than
/// `mostPixels`, and allocates no picture that the bytes at hand could not fill.
TextureImage decodePic(std::span<const std::uint8_t> bytes,
                       std::size_t mostPixels = mostPicturePixels);

} // namespace korvane
