#pragma once

#include "model/TextureImage.h"

#include <cstdint>
#include <span>

namespace korvane {

// Each decoder gives the 1 x 1 image for what it cannot decode, and allocates no picture that the
// bytes at hand could not fill. Memory that runs out shows as std::bad_alloc.

/// A Truevision TGA picture, uncompressed, with 16, 24 or 32 bits a pixel. The fourth byte of a
/// pixel is ignored: alpha is 255.
TextureImage decodeTga(std::span<const std::uint8_t> bytes);

/// A Softimage PIC picture. Where its data breaks off, the rest stays opaque white.
TextureImage decodePic(std::span<const std::uint8_t> bytes);

/// A picture that Qt reads: `format` is "BMP" or "ICO" and is not guessed. Alpha is 255.
TextureImage decodeWithQt(std::span<const std::uint8_t> bytes, const char* format);

} // namespace korvane
