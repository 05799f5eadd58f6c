#pragma once

#include "render/math/Lanes.h"
#include "render/software/PolygonFill.h"

#include <array>

namespace korvane {

/// Writes four neighbouring pixels of a row: the lit colour, optionally multiplied by a texture and
/// blended with the pixels' old colours.
template <bool Textured, bool Blend>
class BlockShader {
  public:
    explicit BlockShader(const RasterSurface& surface)
        : texture_(surface.texture), opacity_(surface.opacity) {}

    /// `light` is red, green and blue from 0 to 255, s and t are positions in the texture. Pixels
    /// outside `pass` keep their values.
    void put(BitmapPixel* pixels, IntLanes pass, const std::array<FloatLanes, 3>& light,
             FloatLanes s, FloatLanes t) const {
        const auto before = loadLanes<IntLanes>(pixels);
        std::array<FloatLanes, 3> color = light;
        FloatLanes share = allLanes(opacity_);
        if constexpr (Textured) {
            multiplyByTexture(color, share, pass, s, t);
        }
        if constexpr (Blend) {
            for (std::size_t k = 0; k < 3; ++k) {
                const FloatLanes below = numbers(before >> shift(k) & byteMask);
                color[k] = below + (color[k] - below) * share;
            }
        }
        IntLanes packed = allLanes(-0x1000000);
        for (std::size_t k = 0; k < 3; ++k) {
            packed |= truncated(color[k] + allLanes(0.5F)) << shift(k);
        }
        storeLanes(pixels, select(pass, packed, before));
    }

  private:
    static constexpr std::int32_t byteMask = 0xff;

    /// The bit positions of red, green and blue in a pixel.
    static constexpr int shift(std::size_t channel) { return 16 - 8 * static_cast<int>(channel); }

    void multiplyByTexture(std::array<FloatLanes, 3>& color, FloatLanes& share, IntLanes pass,
                           FloatLanes s, FloatLanes t) const {
        const TextureSampler::Colors texels = texture_->at(truncated(s), truncated(t), pass);
        for (std::size_t k = 0; k < 3; ++k) {
            color[k] *= texels[k];
        }
        if constexpr (Blend) {
            share *= texels[3];
        }
    }

    const TextureSampler* texture_;
    float opacity_;
};

} // namespace korvane
