#pragma once

#include "model/records/TextureImage.h"

#include <cstddef>
#include <exception>

namespace korvane {

// Every decoder gives the 1 x 1 image for what it cannot decode, what memory cannot hold or what
// has more pixels than it is told. It allocates no picture that the bytes at hand could not fill,
// but for small ones of the formats whose runs may leave pixels out.

/// The pixels that the pictures of one reading may have together; past that, memory counts as not
/// to be had.
inline constexpr std::size_t mostPicturePixels = std::size_t{256} << 20U;
/// The pixels of one picture that is packed in its file (as runs): few bytes can claim many.
inline constexpr std::size_t mostPackedPixels = std::size_t{64} << 20U;

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
