#include "edit/TexturePicture.h"

namespace korvane {

QImage texturePicture(const TextureImage& texture) {
    const QImage pixels(
        reinterpret_cast<const uchar*>(texture.pixels.data()), texture.width, texture.height,
        qsizetype{texture.width} * static_cast<qsizetype>(sizeof(Rgba8)), QImage::Format_RGBA8888);
    // the opposite of premultiplied: the colours stay as they are when the alpha is left out
    return pixels.convertToFormat(QImage::Format_RGB32);
}

} // namespace korvane
