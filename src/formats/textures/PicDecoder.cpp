#include "formats/textures/PicDecoder.h"

#include "formats/files/ByteReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

namespace {

/// The channels that one packet of a row's data carries.
using ChannelMask = std::uint8_t;
constexpr ChannelMask redChannel = 0x80;
constexpr ChannelMask greenChannel = 0x40;
constexpr ChannelMask blueChannel = 0x20;
constexpr ChannelMask alphaChannel = 0x10;

class PicDecoder {
  public:
    explicit PicDecoder(std::span<const std::uint8_t> bytes) : in_(bytes) {}

    TextureImage decode(std::size_t maxPixels);

  private:
    bool readHeader();
    void readRow(std::span<Rgba8> row, ChannelMask mask);
    void readPixel(Rgba8& pixel, ChannelMask mask);

    ByteReader in_;
    std::size_t width_ = 0;
    std::size_t height_ = 0;
    std::vector<ChannelMask> packets_;
    bool hasAlpha_ = false;
};

TextureImage PicDecoder::decode(std::size_t maxPixels) {
    // No byte stands for more than 128 pixels of a row.
    constexpr std::size_t maxPixelsPerByte = 128;
    if (!readHeader()) {
        throw TextureRefusal("it is not a Softimage picture");
    }
    checkPixels(width_ * height_, std::min(maxPixels, maxPackedPixels));
    if (packets_.empty() ||
        height_ * packets_.size() * ((width_ - 1) / maxPixelsPerByte + 1) > in_.remaining()) {
        throw TextureRefusal("it is truncated");
    }
    TextureImage image;
    image.width = static_cast<std::int32_t>(width_);
    image.height = static_cast<std::int32_t>(height_);
    image.pixels.resize(width_ * height_);
    for (std::size_t y = 0; y < height_; ++y) {
        for (const ChannelMask mask : packets_) {
            readRow(std::span(image.pixels).subspan(y * width_, width_), mask);
        }
    }
    image.HasAlpha = hasAlpha_;
    return image;
}

bool PicDecoder::readHeader() {
    constexpr std::uint32_t magic = 0x5380F634;
    constexpr std::uint32_t pict = 0x50494354;
    constexpr std::size_t versionAndComment = 84;
    if (in_.bigEndian32() != magic) {
        return false;
    }
    in_.skip(versionAndComment);
    if (in_.bigEndian32() != pict) {
        return false;
    }
    width_ = in_.bigEndian16();
    height_ = in_.bigEndian16();
    in_.skip(8); // aspect ratio, fields, padding
    bool chained = true;
    while (chained && in_.remaining() > 0) {
        chained = in_.byte() != 0;
        in_.skip(2); // size and type: every packet is taken as mixed run-length data
        packets_.push_back(in_.byte());
    }
    return true;
}

void PicDecoder::readRow(std::span<Rgba8> row, ChannelMask mask) {
    std::size_t x = 0;
    while (x < row.size() && in_.remaining() > 0) {
        const unsigned count = in_.byte();
        if (count < 128) {
            for (unsigned i = 0; i <= count && x < row.size(); ++i) {
                readPixel(row[x++], mask);
            }
            continue;
        }
        std::size_t run = count - 127;
        if (count == 128) {
            in_.skip(1); // the high byte of the length, deliberately dropped
            run = in_.byte();
        }
        Rgba8 value;
        readPixel(value, mask);
        for (; run > 0 && x < row.size(); --run, ++x) {
            Rgba8& pixel = row[x];
            pixel.red = (mask & redChannel) != 0 ? value.red : pixel.red;
            pixel.green = (mask & greenChannel) != 0 ? value.green : pixel.green;
            pixel.blue = (mask & blueChannel) != 0 ? value.blue : pixel.blue;
            pixel.alpha = (mask & alphaChannel) != 0 ? value.alpha : pixel.alpha;
        }
    }
}

/// Reads a byte for each channel of the mask, while there are any.
void PicDecoder::readPixel(Rgba8& pixel, ChannelMask mask) {
    const auto read = [&](ChannelMask channel, std::uint8_t& value) {
        if ((mask & channel) != 0 && in_.remaining() > 0) {
            value = in_.byte();
        }
    };
    read(redChannel, pixel.red);
    read(greenChannel, pixel.green);
    read(blueChannel, pixel.blue);
    read(alphaChannel, pixel.alpha);
    hasAlpha_ = hasAlpha_ || ((mask & alphaChannel) != 0 && pixel.alpha != 255);
}

} // namespace

DecodedTexture decodePic(std::span<const std::uint8_t> bytes, std::size_t maxPixels) {
    return decodedOrRefused([&] { return PicDecoder(bytes).decode(maxPixels); });
}

} // namespace korvane
