#pragma once

#include "model/records/TextureImage.h"

#include <QImage>

namespace korvane {

/// Returns a picture that shares the texture's pixels; valid until the texture changes.
QImage imageOf(const TextureImage& texture);

/// Returns an opaque copy of the texture, as dialogs show it.
QImage texturePicture(const TextureImage& texture);

} // namespace korvane
