#include "edit/TexturePicture.h"

namespace korvane {

QImage texturePicture(const TextureImage& texture) {
    // the opposite of premultiplied: the colours stay as they are when the alpha is left out
    return imageOf(texture).convertToFormat(QImage::Format_RGB32);
}

} // namespace korvane
