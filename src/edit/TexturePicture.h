#pragma once

#include "model/TextureImage.h"

#include <QImage>

namespace korvane {

/// A picture of the texture with each pixel copied, opaque as the texture is shown in dialogs.
QImage texturePicture(const TextureImage& texture);

} // namespace korvane
