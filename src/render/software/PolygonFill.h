#pragma once

#include "render/picture/Bitmap.h"
#include "render/software/TextureSampler.h"

#include <array>
#include <cstdint>
#include <span>

namespace korvane {

/// Parts of a pixel that screen positions are counted in.
inline constexpr std::int32_t subpixels = 256;

/// The pixels and depths that drawing goes into, row by row; Bitmap::slack entries behind the last
/// one exist in both.
struct RasterTarget {
    BitmapPixel* pixels;
    float* depths; ///< view space z of what was drawn
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
    const TextureSampler* texture = nullptr; ///< multiplies the lit colour; none when null
    bool blend = false;                      ///< mix with what is there and leave the depths alone
    float opacity = 1.0F;                    ///< 0 to 1, used when blending
};

/// Fills a polygon as the fan of triangles around its first corner, nearer pixels winning. A pixel
/// belongs to the triangle that its centre lies in; of two triangles with a common edge exactly one
/// takes a centre on it. Either way round is filled. Corners may lie off the picture as far as
/// positions of 2^22 subpixels.
void fillPolygon(const RasterTarget& target, std::span<const RasterCorner> corners,
                 const RasterSurface& surface);

} // namespace korvane
