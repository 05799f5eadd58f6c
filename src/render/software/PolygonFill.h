#pragma once

#include "render/picture/Bitmap.h"
#include "render/software/TextureSampler.h"

#include <array>
#include <cstdint>
#include <span>

namespace korvane {

/// The units of screen positions in a pixel.
inline constexpr std::int32_t subpixels = 256;

/// The pixels and depths to draw into, row by row. Both have Bitmap::slack entries behind the last
/// one.
struct RasterTarget {
    BitmapPixel* pixels;
    float* depths; ///< view space z of the pixels
    std::int32_t width;
    std::int32_t height;
};

/// A corner on the screen.
struct RasterCorner {
    std::int32_t x; ///< in subpixels from the left edge of the picture
    std::int32_t y; ///< in subpixels from the top edge
    /// View space z, above 0, then the lit colour: red, green and blue from 0 to 255.
    std::array<float, 4> values;
    float s = 0.0F; ///< texture column in steps of a TextureSampler, 0 to maxTexturePosition
    float t = 0.0F; ///< texture row
};

inline constexpr float maxTexturePosition = 1073741824.0F;

/// How a polygon is filled.
struct RasterSurface {
    const TextureSampler* texture = nullptr; ///< multiplies the lit colour; may be null
    bool blend = false;                      ///< blend with the old pixels, leave the depths
    float opacity = 1.0F;                    ///< 0 to 1, used when blending
};

/// Fills a polygon as a triangle fan around its first corner; nearer pixels win. A pixel belongs to
/// the triangle that holds its centre; of two triangles with a common edge exactly one takes a
/// centre on it. The corners may run either way round and may lie off the picture, at positions up
/// to 2^22 subpixels.
void fillPolygon(const RasterTarget& target, std::span<const RasterCorner> corners,
                 const RasterSurface& surface);

} // namespace korvane
