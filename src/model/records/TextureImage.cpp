#include "model/records/TextureImage.h"

namespace korvane {

const std::shared_ptr<const TextureImage>& blankTextureImage() {
    static const std::shared_ptr<const TextureImage> blank = std::make_shared<TextureImage>();
    return blank;
}

} // namespace korvane
