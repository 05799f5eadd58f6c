#pragma once

#include "render/picture/Bitmap.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace korvane {

/// A pixel of a bitmap by column and row, (0, 0) being the top left one. It may lie anywhere.
struct PixelPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;

    bool operator==(const PixelPoint&) const = default;
};

/// Stands for a place too far off for a PixelPoint, or for no place.
inline constexpr PixelPoint noPixel = {std::numeric_limits<std::int32_t>::min(), 0};

/// The nearest pixel to a place, or noPixel.
inline PixelPoint pixelAt(double x, double y) {
    constexpr std::int32_t farthest = 1 << 28;
    // negated, to catch NaN too
    if (!(std::abs(x) < farthest && std::abs(y) < farthest)) {
        return noPixel;
    }
    // made positive first, as the conversion truncates toward zero
    const auto pixel = [](double place) {
        return static_cast<std::int32_t>(place + (farthest + 0.5)) - farthest;
    };
    return {pixel(x), pixel(y)};
}

// Only the part within the bitmap is drawn and takes time. Its pixels are those of the whole line,
// so that panning a picture does not change its lines.

/// Draws a line one pixel wide, both ends included.
void drawLine(Bitmap& bitmap, PixelPoint from, PixelPoint to, BitmapPixel color);

/// Draws a line between two places in pixels, each rounded to the nearest pixel. The pixels are
/// exact up to 1e12 away and get less accurate beyond. Draws nothing if a number is not finite.
void drawLine(Bitmap& bitmap, double fromX, double fromY, double toX, double toY,
              BitmapPixel color);

/// Draws the outline of an ellipse that reaches a radius to either side of its centre pixel. Radii
/// are clamped to 0 and 4096.
void drawEllipse(Bitmap& bitmap, PixelPoint centre, std::int32_t radiusX, std::int32_t radiusY,
                 BitmapPixel color);

/// Colours one pixel if it lies within the bitmap.
inline void drawPixel(Bitmap& bitmap, std::int64_t x, std::int64_t y, BitmapPixel color) {
    if (x >= 0 && y >= 0 && x < bitmap.width() && y < bitmap.height()) {
        bitmap.pixels()[y * bitmap.width() + x] = color;
    }
}

} // namespace korvane
