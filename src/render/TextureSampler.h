#pragma once

#include "model/TextureImage.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace korvane {

/// Looks colours of a texture up: bilinear between the centres of its pixels, repeating, at any
/// size.
class TextureSampler {
  public:
    /// Fractions of a pixel that positions are counted in.
    static constexpr std::int32_t steps = 256;

    TextureSampler() = default;
    /// The image must outlive the sampler and hold all of its pixels, at least one.
    explicit TextureSampler(const TextureImage& image)
        : pixels_(image.pixels.data()), width_(static_cast<std::uint32_t>(image.width)),
          height_(static_cast<std::uint32_t>(image.height)),
          powersOfTwo_(std::has_single_bit(width_) && std::has_single_bit(height_)) {}

    [[nodiscard]] std::uint32_t width() const { return width_; }
    [[nodiscard]] std::uint32_t height() const { return height_; }

    /// What a channel of a Texel is at most.
    static constexpr std::int32_t whole = 255 * steps;

    /// Red, blue, green and alpha from the lowest, 16 bits each.
    using Texel = std::uint64_t;

    /// The colour at a position in steps from the centre of the top left pixel, 0 or more.
    [[nodiscard]] Texel at(std::uint32_t x, std::uint32_t y) const {
        const std::uint32_t column = wrapped(x / steps, width_);
        const std::uint32_t row = wrapped(y / steps, height_);
        const std::uint32_t nextColumn = column + 1 == width_ ? 0 : column + 1;
        const std::uint32_t nextRow = row + 1 == height_ ? 0 : row + 1;
        const Rgba8* const upper = pixels_ + std::size_t{row} * width_;
        const Rgba8* const lower = pixels_ + std::size_t{nextRow} * width_;
        const std::uint32_t fx = x % steps;
        const std::uint32_t fy = y % steps;
        // the weights add up to 256 exactly, so that no channel overflows its sixteen bits
        const std::uint32_t both = fx * fy / steps;
        return spread(upper[column]) * (steps - fx - fy + both) +
               spread(upper[nextColumn]) * (fx - both) + spread(lower[column]) * (fy - both) +
               spread(lower[nextColumn]) * both;
    }

  private:
    [[nodiscard]] std::uint32_t wrapped(std::uint32_t index, std::uint32_t size) const {
        return powersOfTwo_ ? index & (size - 1) : index % size;
    }
    /// The four channels sixteen bits apart, so that one multiplication weighs them all: red, blue,
    /// green, alpha from the lowest.
    static std::uint64_t spread(Rgba8 pixel) {
        auto word = std::bit_cast<std::uint32_t>(pixel);
        if constexpr (std::endian::native == std::endian::big) {
            word = word >> 24U | (word >> 8U & 0xff00U) | (word << 8U & 0xff0000U) | word << 24U;
        }
        return (word & 0x00ff00ffU) | std::uint64_t{word & 0xff00ff00U} << 24U;
    }

    const Rgba8* pixels_ = nullptr;
    std::uint32_t width_ = 1;
    std::uint32_t height_ = 1;
    bool powersOfTwo_ = true;
};

} // namespace korvane
