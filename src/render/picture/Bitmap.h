#pragma once

#include <QImage>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// A pixel of a Bitmap: 0xffRRGGBB as an integer; 0 for none, where a bitmap is laid over another.
using BitmapPixel = std::uint32_t;

/// A picture in memory that drawing goes into: rows of 32-bit pixels, top row first, without gaps.
/// A QImage of the format RGB32 can wrap its memory.
class Bitmap {
  public:
    /// Pixels behind the last row that may be read, and written with what they hold: drawing goes
    /// over rows in whole blocks.
    static constexpr std::size_t slack = 16;

    /// Changes the size, each side taken as at least 1; the content is unspecified afterwards.
    /// Where memory runs out the bitmap stays as it was.
    void resize(std::int32_t width, std::int32_t height);
    void fill(BitmapPixel color);
    /// Puts the rows into the opposite order.
    void turnOver();

    [[nodiscard]] std::int32_t width() const { return width_; }
    [[nodiscard]] std::int32_t height() const { return height_; }
    [[nodiscard]] BitmapPixel* pixels() { return pixels_.data(); }
    [[nodiscard]] const BitmapPixel* pixels() const { return pixels_.data(); }
    /// width() times height().
    [[nodiscard]] std::size_t pixelCount() const { return pixels_.size() - slack; }

    /// The pixel at a column and row within the picture.
    [[nodiscard]] BitmapPixel at(std::int32_t x, std::int32_t y) const {
        return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x)];
    }

  private:
    std::int32_t width_ = 1;
    std::int32_t height_ = 1;
    std::vector<BitmapPixel> pixels_ = std::vector<BitmapPixel>(1 + slack);
};

/// The bitmap as an image that uses its memory: valid until the bitmap is resized or gone.
QImage imageOf(const Bitmap& bitmap);
/// The same for one to be laid over another: pixels of value 0 are transparent.
QImage overlayOf(const Bitmap& bitmap);

/// How many pixels of a 32-bit image differ from the colour.
std::size_t countOtherThan(const QImage& image, BitmapPixel color);

} // namespace korvane
