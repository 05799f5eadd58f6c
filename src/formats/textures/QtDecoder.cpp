#include "formats/textures/QtDecoder.h"

#include "formats/files/ByteReader.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace korvane {

namespace {

/// Returns the most pixels that a bitmap file of these bytes may claim: its rows have a fixed
/// number of bits a pixel, or runs of up to 255 equal pixels in two bytes. Runs can also skip any
/// number of pixels, which is accepted for small pictures.
std::size_t crediblePixels(std::span<const std::uint8_t> bytes) {
    constexpr std::uint32_t oldHeaderSize = 12;
    constexpr std::size_t pixelsPerRunByte = 128;
    constexpr std::size_t smallPicture = 1 << 20;
    ByteReader in(bytes);
    in.skip(14); // the file header
    const std::uint32_t headerSize = in.littleEndian32();
    in.skip(headerSize == oldHeaderSize ? 6 : 10);
    const std::size_t bitsPerPixel = std::max<std::size_t>(in.littleEndian16(), 1);
    const bool runs = headerSize != oldHeaderSize && (bitsPerPixel == 4 || bitsPerPixel == 8) &&
                      in.littleEndian32() != 0;
    return runs ? std::clamp(bytes.size() * pixelsPerRunByte, smallPicture, maxPackedPixels)
                : bytes.size() * 8 / bitsPerPixel;
}

/// While it exists, Qt decodes pictures of up to 1 MB: the largest icon, 256 x 256, fits.
class IconSizeLimit {
  public:
    IconSizeLimit() { QImageReader::setAllocationLimit(1); }
    ~IconSizeLimit() { QImageReader::setAllocationLimit(before_); }
    IconSizeLimit(const IconSizeLimit&) = delete;
    IconSizeLimit& operator=(const IconSizeLimit&) = delete;

  private:
    int before_ = QImageReader::allocationLimit(); ///< megabytes
};

/// Copies row by row, which needs no second picture of the same size.
TextureImage copyOf(const QImage& picture) {
    TextureImage image;
    image.width = picture.width();
    image.height = picture.height();
    image.pixels.clear();
    image.pixels.reserve(static_cast<std::size_t>(image.width) *
                         static_cast<std::size_t>(image.height));
    for (int y = 0; y < picture.height(); ++y) {
        const QImage line =
            picture.copy(0, y, picture.width(), 1).convertToFormat(QImage::Format_RGBA8888);
        const uchar* pixel = line.constScanLine(0);
        for (int x = 0; x < line.width(); ++x, pixel += 4) {
            image.pixels.push_back({pixel[0], pixel[1], pixel[2], 255});
        }
    }
    return image;
}

TextureImage decodeBitmap(QImageReader& reader, std::span<const std::uint8_t> bytes,
                          std::size_t maxPixels) {
    // the height of a picture stored from the top down is negative
    const std::int64_t width = std::abs(std::int64_t{reader.size().width()});
    const std::int64_t height = std::abs(std::int64_t{reader.size().height()});
    if (reader.size() == QSize()) {
        throw TextureRefusal("it is not a bitmap");
    }
    const auto pixels = static_cast<std::size_t>(width * height);
    checkPixels(pixels, maxPixels);
    if (pixels > crediblePixels(bytes)) {
        throw TextureRefusal("it has more pixels than its size allows");
    }
    // decoded into memory of our own: unlike the reader's, it is defined where the file sets no
    // pixels, and not limited in size
    QImage picture(static_cast<int>(width), static_cast<int>(height), reader.imageFormat());
    picture.fill(0);
    if (!reader.read(&picture)) {
        throw TextureRefusal("it is damaged, or an unknown kind of bitmap");
    }
    return copyOf(picture);
}

TextureImage decode(std::span<const std::uint8_t> bytes, std::string_view format,
                    std::size_t maxPixels) {
    QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer, QByteArray(format.data(), static_cast<qsizetype>(format.size())));
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    if (format == "BMP") {
        return decodeBitmap(reader, bytes, maxPixels);
    }
    // a picture in an icon may be compressed, and larger than the icon says
    const IconSizeLimit limit;
    const QImage picture = reader.read();
    if (picture.isNull()) {
        throw TextureRefusal("it is damaged, or not an icon");
    }
    checkPixels(static_cast<std::size_t>(std::int64_t{picture.width()} * picture.height()),
                maxPixels);
    return copyOf(picture);
}

} // namespace

DecodedTexture decodeWithQt(std::span<const std::uint8_t> bytes, const char* format,
                            std::size_t maxPixels) {
    return decodedOrRefused([&] { return decode(bytes, format, maxPixels); });
}

} // namespace korvane
