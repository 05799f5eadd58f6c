#pragma once

#include <QImage>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// A pixel of a Bitmap: 0xffRRGGBB as an integer, or 0 for a transparent pixel of an overlay.
using BitmapPixel = std::uint32_t;

/// A picture in memory to draw into: rows of 32-bit pixels, top row first, without gaps. A QImage
/// of the format RGB32 can wrap its memory.
class Bitmap {
  public:
    /// Pixels behind the last row. Drawing goes over rows in whole blocks, so it may read these and
    /// write the same values back.
    static constexpr std::size_t slack = 16;

    /// Changes the size, each side taken as at least 1, and leaves the content unspecified. If
    /// memory runs out, the bitmap stays as it was.
    void resize(std::int32_t width, std::int32_t height);
    void fill(BitmapPixel color);
    /// Reverses the order of the rows.
    void flipRows();

    [[nodiscard]] std::int32_t width() const { return width_; }
    [[nodiscard]] std::int32_t height() const { return height_; }
    [[nodiscard]] BitmapPixel* pixels() { return pixels_.data(); }
    [[nodiscard]] const BitmapPixel* pixels() const { return pixels_.data(); }
    /// width() times height().
    [[nodiscard]] std::size_t pixelCount() const { return pixels_.size() - slack; }

    /// The pixel at a column and row, which must lie within the picture.
    [[nodiscard]] BitmapPixel at(std::int32_t x, std::int32_t y) const {
        return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x)];
    }

  private:
    std::int32_t width_ = 1;
    std::int32_t height_ = 1;
    std::vector<BitmapPixel> pixels_ = std::vector<BitmapPixel>(1 + slack);
};

/// Wraps the bitmap's memory as an image: valid until the bitmap is resized or destroyed.
QImage imageOf(const Bitmap& bitmap);
/// The same for an overlay: pixels of value 0 are transparent.
QImage overlayOf(const Bitmap& bitmap);

/// How many pixels of a 32-bit image differ from the colour.
std::size_t countOtherThan(const QImage& image, BitmapPixel color);

} // namespace korvane
