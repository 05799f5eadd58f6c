#pragma once

#include "model/records/TextureImage.h"
#include "render/math/Lanes.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace korvane {

/// Samples a texture of any size, four colours at once: bilinear between the centres of its pixels,
/// repeating.
class TextureSampler {
  public:
    /// The units of positions in a pixel.
    static constexpr std::int32_t steps = 256;

    TextureSampler() = default;
    /// The image must outlive the sampler and hold all of its pixels, at least one.
    explicit TextureSampler(const TextureImage& image)
        : pixels_(image.pixels.data()), width_(static_cast<std::uint32_t>(image.width)),
          height_(static_cast<std::uint32_t>(image.height)),
          powersOfTwo_(std::has_single_bit(width_) && std::has_single_bit(height_)) {}

    [[nodiscard]] std::uint32_t width() const { return width_; }
    [[nodiscard]] std::uint32_t height() const { return height_; }

    /// Red, green, blue and alpha of four colours, from 0 to 1.
    using Colors = std::array<FloatLanes, 4>;

    /// The colours at positions in steps from the centre of the top left pixel, 0 or more. Lanes
    /// outside `wanted` may have any position and return any colour.
    [[nodiscard]] Colors at(IntLanes x, IntLanes y, IntLanes wanted) const {
        const IntLanes fx = x & allLanes(steps - 1);
        const IntLanes fy = y & allLanes(steps - 1);
        // the weights add up to 256 exactly, so that no channel overflows its sixteen bits
        const IntLanes both = (fx * fy) >> stepBits;
        const PerLane upperWeights((allLanes(steps) - fx - fy + both) | (fx - both) << 16);
        const PerLane lowerWeights((fy - both) | both << 16);
        const PerLane columns(wrapped(x >> stepBits, width_) & wanted);
        const PerLane rows(wrapped(y >> stepBits, height_) & wanted);
        // unwanted lanes too: a test would take longer
        const auto color = [&](std::size_t lane) -> ShortLanes {
            const std::uint32_t column = columns[lane];
            const std::uint32_t row = rows[lane];
            const std::uint32_t nextRow = row + 1 == height_ ? 0 : row + 1;
            return foldedHalves(pair(row, column) * repeatEachFourTimes(upperWeights[lane]) +
                                pair(nextRow, column) * repeatEachFourTimes(lowerWeights[lane]));
        };
        return channels(lowerHalves(color(0), color(1)), lowerHalves(color(2), color(3)));
    }

  private:
    static constexpr int stepBits = 8;
    static_assert(1 << stepBits == steps);
    static_assert(std::endian::native == std::endian::little, "the first channel is the lowest");

    /// Lanes as single numbers.
    class PerLane {
      public:
        explicit PerLane(IntLanes lanes) { storeLanes(numbers_.data(), lanes); }
        std::uint32_t operator[](std::size_t lane) const { return numbers_[lane]; }

      private:
        std::array<std::uint32_t, laneCount> numbers_;
    };

    /// Maps columns or rows of repetitions into the texture, whatever the number.
    [[nodiscard]] IntLanes wrapped(IntLanes at, std::uint32_t size) const {
        const IntLanes side = allLanes(static_cast<std::int32_t>(size));
        return powersOfTwo_ ? at & (side - allLanes(1))
                            : reinterpret_cast<IntLanes>(reinterpret_cast<UnsignedLanes>(at) %
                                                         reinterpret_cast<UnsignedLanes>(side));
    }

    /// The four channels of a pixel and those of the one to its right.
    [[nodiscard]] ShortLanes pair(std::uint32_t row, std::uint32_t column) const {
        const Rgba8* const pixels = pixels_ + std::size_t{row} * width_;
        std::uint64_t bytes = 0;
        if (column + 1 != width_) {
            std::memcpy(&bytes, pixels + column, sizeof bytes);
        } else {
            bytes = std::bit_cast<std::uint32_t>(pixels[column]) |
                    std::uint64_t{std::bit_cast<std::uint32_t>(pixels[0])} << 32U;
        }
        return widened(bytes);
    }

    /// Copies the lower sixteen bits to the first four lanes and the upper ones to the others, in
    /// two steps of one instruction each.
    static ShortLanes repeatEachFourTimes(std::uint32_t two) {
        const IntLanes word = {static_cast<std::int32_t>(two), 0, 0, 0};
        const auto shorts = reinterpret_cast<ShortLanes>(word);
        const auto doubled = reinterpret_cast<IntLanes>(
            __builtin_shufflevector(shorts, shorts, 0, 8, 1, 9, 2, 10, 3, 11));
        return reinterpret_cast<ShortLanes>(__builtin_shufflevector(doubled, doubled, 0, 0, 1, 1));
    }

    /// Each argument has red, green, blue and alpha of two colours.
    static Colors channels(ShortLanes first, ShortLanes second) {
        constexpr std::int32_t lowHalf = 0xffff;
        const FloatLanes unit = allLanes(1.0F / static_cast<float>(255 * steps));
        const auto low = reinterpret_cast<IntLanes>(first);
        const auto high = reinterpret_cast<IntLanes>(second);
        const IntLanes redGreen = __builtin_shufflevector(low, high, 0, 2, 4, 6);
        const IntLanes blueAlpha = __builtin_shufflevector(low, high, 1, 3, 5, 7);
        return {numbers(redGreen & lowHalf) * unit, numbers(redGreen >> 16 & lowHalf) * unit,
                numbers(blueAlpha & lowHalf) * unit, numbers(blueAlpha >> 16 & lowHalf) * unit};
    }

    const Rgba8* pixels_ = nullptr;
    std::uint32_t width_ = 1;
    std::uint32_t height_ = 1;
    bool powersOfTwo_ = true;
};

} // namespace korvane
