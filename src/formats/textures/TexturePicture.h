#pragma once

#include "model/records/TextureImage.h"

#include <QImage>

namespace korvane {

/// The pixels as a picture that uses their memory: valid as long as the texture stays as it is.
QImage imageOf(const TextureImage& texture);

/// A picture of the texture with each pixel copied, opaque as the texture is shown in dialogs.
QImage texturePicture(const TextureImage& texture);

} // namespace korvane
