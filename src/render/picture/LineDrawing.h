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

/// Stands for a place too far off for the numbers of a pixel, or for no place at all.
inline constexpr PixelPoint noPixel = {std::numeric_limits<std::int32_t>::min(), 0};

/// The nearest pixel to a place, or noPixel.
inline PixelPoint pixelAt(double x, double y) {
    constexpr std::int32_t farthest = 1 << 28;
    // also false for what is no number
    if (!(std::abs(x) < farthest && std::abs(y) < farthest)) {
        return noPixel;
    }
    // rounded by cutting off what has been made positive
    const auto pixel = [](double place) {
        return static_cast<std::int32_t>(place + (farthest + 0.5)) - farthest;
    };
    return {pixel(x), pixel(y)};
}

// Only what lies within the bitmap is drawn, and only that takes time: the pixels are those of the
// whole line, so that a picture that is moved does not change its lines.

/// Draws a line one pixel wide, both ends included.
void drawLine(Bitmap& bitmap, PixelPoint from, PixelPoint to, BitmapPixel color);

/// Draws a line between two places in pixels, each taken as the nearest pixel. The pixels are those
/// of the whole line up to 1e12 away; farther off they get less accurate. Draws nothing if one of
/// the numbers is not finite.
void drawLine(Bitmap& bitmap, double fromX, double fromY, double toX, double toY,
              BitmapPixel color);

/// Draws a line around an ellipse that reaches so many pixels from its centre to either side; radii
/// count as at least 0 and at most as 4096.
void drawEllipse(Bitmap& bitmap, PixelPoint centre, std::int32_t radiusX, std::int32_t radiusY,
                 BitmapPixel color);

/// Colours one pixel if it lies within the bitmap.
inline void drawPixel(Bitmap& bitmap, std::int64_t x, std::int64_t y, BitmapPixel color) {
    if (x >= 0 && y >= 0 && x < bitmap.width() && y < bitmap.height()) {
        bitmap.pixels()[y * bitmap.width() + x] = color;
    }
}

} // namespace korvane
