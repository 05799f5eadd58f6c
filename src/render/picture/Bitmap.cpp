#include "render/picture/Bitmap.h"

#include <algorithm>

namespace korvane {

void Bitmap::resize(std::int32_t width, std::int32_t height) {
    width = std::max(width, 1);
    height = std::max(height, 1);
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) + slack);
    width_ = width;
    height_ = height;
}

void Bitmap::fill(BitmapPixel color) {
    std::fill(pixels_.begin(), pixels_.end(), color);
}

void Bitmap::flipRows() {
    const auto width = static_cast<std::ptrdiff_t>(width_);
    auto upper = pixels_.begin();
    auto lower = upper + width * (height_ - 1);
    for (; upper < lower; upper += width, lower -= width) {
        std::swap_ranges(upper, upper + width, lower);
    }
}

namespace {

QImage wrapped(const Bitmap& bitmap, QImage::Format format) {
    return {reinterpret_cast<const uchar*>(bitmap.pixels()), bitmap.width(), bitmap.height(),
            qsizetype{bitmap.width()} * static_cast<qsizetype>(sizeof(BitmapPixel)), format};
}

} // namespace

QImage imageOf(const Bitmap& bitmap) {
    return wrapped(bitmap, QImage::Format_RGB32);
}

QImage overlayOf(const Bitmap& bitmap) {
    return wrapped(bitmap, QImage::Format_ARGB32_Premultiplied);
}

std::size_t countOtherThan(const QImage& image, BitmapPixel color) {
    std::size_t count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const BitmapPixel*>(image.constScanLine(y));
        count += static_cast<std::size_t>(
            std::count_if(row, row + image.width(), [color](BitmapPixel p) { return p != color; }));
    }
    return count;
}

} // namespace korvane
