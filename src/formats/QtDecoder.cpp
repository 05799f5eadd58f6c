#include "formats/TextureDecoders.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cstdlib>

namespace korvane {

TextureImage decodeWithQt(std::span<const std::uint8_t> bytes, const char* format) {
    // The densest data of these formats, runs of a bitmap, gives 128 pixels a byte at the most; a
    // picture of an icon may be compressed better, but is small.
    constexpr std::int64_t mostPixelsPerByte = 128;
    constexpr std::int64_t iconPixels = 65536; // 256 x 256
    QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    const QSize size = reader.size();
    // the height of a picture stored from the top down is negative
    const std::int64_t pixels = std::abs(std::int64_t{size.width()} * size.height());
    const auto bytesThere = static_cast<std::int64_t>(bytes.size());
    if (pixels > std::max(iconPixels, bytesThere * mostPixelsPerByte)) {
        return {};
    }
    const QImage picture = reader.read().convertToFormat(QImage::Format_RGBA8888);
    if (picture.isNull()) {
        return {};
    }
    TextureImage image;
    image.width = picture.width();
    image.height = picture.height();
    image.pixels.clear();
    image.pixels.reserve(static_cast<std::size_t>(image.width) *
                         static_cast<std::size_t>(image.height));
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* row = picture.constScanLine(y);
        for (int x = 0; x < picture.width(); ++x, row += 4) {
            image.pixels.push_back({row[0], row[1], row[2], 255});
        }
    }
    return image;
}

} // namespace korvane
