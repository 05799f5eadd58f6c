#include "formats/textures/PicDecoder.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const korvane::TextureImage image = korvane::decodePic({data, size}).image;
    const auto pixels =
        static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    if (pixels == 0 || image.pixels.size() != pixels) {
        std::abort();
    }
    return 0;
}
