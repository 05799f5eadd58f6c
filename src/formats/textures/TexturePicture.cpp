#include "formats/textures/TexturePicture.h"

namespace korvane {

QImage imageOf(const TextureImage& texture) {
    return {reinterpret_cast<const uchar*>(texture.pixels.data()), texture.width, texture.height,
            qsizetype{texture.width} * static_cast<qsizetype>(sizeof(Rgba8)),
            QImage::Format_RGBA8888};
}

QImage texturePicture(const TextureImage& texture) {
    // not premultiplied: dropping the alpha leaves the colours as they are
    return imageOf(texture).convertToFormat(QImage::Format_RGB32);
}

} // namespace korvane
