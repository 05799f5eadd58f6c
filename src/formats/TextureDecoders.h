#pragma once

#include "model/TextureImage.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>

namespace korvane {

/// The pixels that the pictures of one reading may have together; past that, memory counts as not
/// to be had.
inline constexpr std::size_t mostPicturePixels = std::size_t{256} << 20U;
/// The pixels of one picture that is packed in its file (as runs): few bytes can claim many.
inline constexpr std::size_t mostPackedPixels = std::size_t{64} << 20U;

// Each decoder gives the 1 x 1 image for what it cannot decode, what memory cannot hold or what has
// more than `mostPixels`, and allocates no picture that the bytes at hand could not fill.

/// A Truevision TGA picture, uncompressed, with 16, 24 or 32 bits a pixel. The fourth byte of a
/// pixel is ignored: alpha is 255.
TextureImage decodeTga(std::span<const std::uint8_t> bytes,
                       std::size_t mostPixels = mostPicturePixels);

/// A Softimage PIC picture. Where its data breaks off, the rest stays opaque white, unless so much
/// is missing that the longest runs could not make up for it.
TextureImage decodePic(std::span<const std::uint8_t> bytes,
                       std::size_t mostPixels = mostPicturePixels);

/// A picture that Qt reads: `format` is "BMP" or "ICO" and is not guessed. Alpha is 255.
TextureImage decodeWithQt(std::span<const std::uint8_t> bytes, const char* format,
                          std::size_t mostPixels = mostPicturePixels);

/// What `decode` gives, or the 1 x 1 image where it throws.
template <class Decode>
TextureImage decodedOrBlank(Decode decode) {
    try {
        return decode();
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace korvane
