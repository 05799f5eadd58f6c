#include "formats/textures/TexturePicture.h"

namespace korvane {

QImage imageOf(const TextureImage& texture) {
    return {reinterpret_cast<const uchar*>(texture.pixels.data()), texture.width, texture.height,
            qsizetype{texture.width} * static_cast<qsizetype>(sizeof(Rgba8)),
            QImage::Format_RGBA8888};
}

QImage texturePicture(const TextureImage& texture) {
    // the opposite of premultiplied: the colours stay as they are when the alpha is left out
    return imageOf(texture).convertToFormat(QImage::Format_RGB32);
}

} // namespace korvane
