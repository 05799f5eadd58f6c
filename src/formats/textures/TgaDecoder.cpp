#include "formats/textures/TgaDecoder.h"

#include "formats/files/ByteReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

namespace {

/// A five-bit channel as a byte.
std::uint8_t fromFiveBits(int value) {
    return static_cast<std::uint8_t>(value * 255 / 31);
}

Rgba8 readPixel(ByteReader& in, unsigned depth) {
    if (depth == 16) {
        const std::uint8_t b0 = in.byte();
        const std::uint8_t b1 = in.byte();
        return {fromFiveBits((b1 & 0x7C) >> 2), fromFiveBits(b0 >> 5 | (b1 & 0x03) << 3),
                fromFiveBits(b0 & 0x1F), 255};
    }
    const std::uint8_t blue = in.byte();
    const std::uint8_t green = in.byte();
    const std::uint8_t red = in.byte();
    in.skip(depth == 32 ? 1 : 0);
    return {red, green, blue, 255};
}

TextureImage decode(ByteReader in, std::size_t mostPixels) {
    constexpr unsigned trueColor = 2;
    constexpr unsigned topDown = 0x20;
    const std::size_t idLength = in.byte();
    const unsigned mapType = in.byte();
    const unsigned imageType = in.byte();
    in.skip(2);
    const std::size_t mapLength = in.littleEndian16();
    const std::size_t mapEntryBits = in.byte();
    in.skip(4);
    const std::size_t width = in.littleEndian16();
    const std::size_t height = in.littleEndian16();
    const unsigned depth = in.byte();
    const unsigned descriptor = in.byte();
    in.skip(idLength);
    if (mapType != 0) {
        in.skip(mapEntryBits / 8 * mapLength);
    }
    const bool known = imageType == trueColor && (depth == 16 || depth == 24 || depth == 32);
    const std::size_t pixels = width * height;
    if (!known || pixels == 0 || pixels > std::min(in.remaining() / (depth / 8), mostPixels)) {
        return {};
    }
    TextureImage image;
    image.width = static_cast<std::int32_t>(width);
    image.height = static_cast<std::int32_t>(height);
    image.pixels.resize(pixels);
    for (std::size_t fileRow = 0; fileRow < height; ++fileRow) {
        const std::size_t row = (descriptor & topDown) != 0 ? fileRow : height - 1 - fileRow;
        for (std::size_t x = 0; x < width; ++x) {
            image.pixels[row * width + x] = readPixel(in, depth);
        }
    }
    return image;
}

} // namespace

TextureImage decodeTga(std::span<const std::uint8_t> bytes, std::size_t mostPixels) {
    return decodedOrBlank([&] { return decode(ByteReader(bytes), mostPixels); });
}

} // namespace korvane
