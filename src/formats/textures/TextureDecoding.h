#pragma once

#include "formats/textures/Decoding.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// Decodes a picture. Its kind follows from the extension of its file name (with the dot, in any
/// case), never from its bytes.
DecodedTexture decodeTexture(std::span<const std::uint8_t> bytes, const QString& extension,
                             std::size_t maxPixels = maxPicturePixels);

/// The same for a file; refuses folders and devices.
DecodedTexture decodeTextureFile(const QString& fileName, std::size_t maxPixels = maxPicturePixels);

} // namespace korvane
