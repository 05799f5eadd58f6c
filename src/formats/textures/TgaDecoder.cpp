#include "formats/textures/TgaDecoder.h"

#include "formats/files/ByteReader.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace korvane {

namespace {

/// Scales a five-bit channel to a byte.
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

TextureImage decode(ByteReader in, std::size_t maxPixels) {
    constexpr unsigned trueColor = 2;
    constexpr unsigned topDown = 0x20;
    if (in.remaining() < 18) {
        throw TextureRefusal("it is truncated");
    }
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
    if (imageType != trueColor) {
        throw TextureRefusal("it is a TGA of type " + std::to_string(imageType) +
                             ", but only type 2 (uncompressed true colour) is read");
    }
    if (depth != 16 && depth != 24 && depth != 32) {
        throw TextureRefusal("it is a TGA with " + std::to_string(depth) +
                             " bits per pixel, but only 16, 24 and 32 are read");
    }
    const std::size_t pixels = width * height;
    if (pixels > in.remaining() / (depth / 8)) {
        throw TextureRefusal("it is truncated");
    }
    checkPixels(pixels, maxPixels);
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

DecodedTexture decodeTga(std::span<const std::uint8_t> bytes, std::size_t maxPixels) {
    return decodedOrRefused([&] { return decode(ByteReader(bytes), maxPixels); });
}

} // namespace korvane
