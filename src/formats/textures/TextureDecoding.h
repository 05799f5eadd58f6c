#pragma once

#include "formats/textures/Decoding.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// Decodes the bytes of a picture by the extension of its file's name, with the dot and in any
/// case. The bytes are never looked at to guess another kind.
DecodedTexture decodeTexture(std::span<const std::uint8_t> bytes, const QString& extension,
                             std::size_t mostPixels = mostPicturePixels);

/// The same for a file, which folders and devices are not.
DecodedTexture decodeTextureFile(const QString& fileName,
                                 std::size_t mostPixels = mostPicturePixels);

} // namespace korvane
