#include "model/TextureImage.h"

namespace korvane {

const std::shared_ptr<const TextureImage>& blankTextureImage() {
    static const std::shared_ptr<const TextureImage> blank = std::make_shared<TextureImage>();
    return blank;
}

QImage imageOf(const TextureImage& texture) {
    return {reinterpret_cast<const uchar*>(texture.pixels.data()), texture.width, texture.height,
            qsizetype{texture.width} * static_cast<qsizetype>(sizeof(Rgba8)),
            QImage::Format_RGBA8888};
}

} // namespace korvane
