#include "render/PolygonFill.h"

#include "render/Lanes.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// The pixels whose centres a triangle may cover.
struct PixelBox {
    std::int32_t left, top, right, bottom; // the last two belong to it

    [[nodiscard]] bool empty() const { return left > right || top > bottom; }
};

template <class Number>
std::array<Number, 2> range(Number a, Number b, Number c) {
    return {std::min(std::min(a, b), c), std::max(std::max(a, b), c)};
}

/// A triangle with its corners in clockwise order as seen (y down), to be filled.
struct Triangle {
    const RasterCorner* a;
    const RasterCorner* b;
    const RasterCorner* c;
    std::int64_t area; ///< twice its area in square subpixels, above 0
};

/// The line from p to q: 0 or more on its inner side, pixels that an edge runs through going to the
/// triangle whose left or top edge it is.
template <class Number>
struct Edge {
    Edge(const RasterCorner& p, const RasterCorner& q, const PixelBox& box)
        : stepX(Number{p.y} - q.y), stepY(Number{q.x} - p.x),
          bias(stepX > 0 || (stepX == 0 && stepY > 0) ? 0 : 1) {
        constexpr Number half = subpixels / 2;
        value = stepX * (Number{box.left} * subpixels + half - p.x) +
                stepY * (Number{box.top} * subpixels + half - p.y) - bias;
        stepX *= subpixels;
        stepY *= subpixels;
    }

    Number stepX; ///< change from one pixel to the next
    Number stepY;
    Number bias;
    Number value; ///< at the box's left column in the current row
};

BitmapPixel packed(std::int32_t red, std::int32_t green, std::int32_t blue) {
    return 0xff000000U | static_cast<BitmapPixel>(red) << 16U |
           static_cast<BitmapPixel>(green) << 8U | static_cast<BitmapPixel>(blue);
}

/// A mix of two pixels, the share of the second one from 0 to 256.
BitmapPixel mixed(BitmapPixel below, BitmapPixel above, std::uint32_t share) {
    constexpr BitmapPixel redBlue = 0x00ff00ffU;
    constexpr BitmapPixel green = 0x0000ff00U;
    const BitmapPixel rb = (below & redBlue) * (256 - share) + (above & redBlue) * share;
    const BitmapPixel g = (below & green) * (256 - share) + (above & green) * share;
    return 0xff000000U | (rb >> 8U & redBlue) | (g >> 8U & green);
}

/// What is put into a pixel that passed the depth test. Colours are 0 to 255, texture positions in
/// range.
template <bool Textured, bool Blend>
class Shader {
  public:
    explicit Shader(const RasterSurface& surface)
        : texture_(surface.texture), share_(surface.share) {}

    void put(BitmapPixel& pixel, std::int32_t red, std::int32_t green, std::int32_t blue,
             std::int32_t s, std::int32_t t) const {
        BitmapPixel color = 0;
        std::uint32_t share = share_;
        if constexpr (Textured) {
            const TextureSampler::Texel texel =
                texture_->at(static_cast<std::uint32_t>(s), static_cast<std::uint32_t>(t));
            // 255 times 256 times 257 is a little below 2^24
            const auto lit = [](std::uint32_t channel, std::int32_t light) {
                return static_cast<std::int32_t>(
                    channel * static_cast<std::uint32_t>(light + (light >> 7)) >> 16U);
            };
            color = packed(lit(texel.red, red), lit(texel.green, green), lit(texel.blue, blue));
            share = share * (texel.alpha + (texel.alpha >> 7U)) >> 16U;
        } else {
            color = packed(red, green, blue);
        }
        if constexpr (Blend) {
            color = mixed(pixel, color, share);
        }
        pixel = color;
    }

  private:
    const TextureSampler* texture_;
    std::uint32_t share_; ///< opacity from 0 to 256
};

float lane(const FloatLanes& lanes, int i) {
    return lanes[i];
}

/// Fills a triangle of a few pixels: every pixel of its box is tested, and values follow from the
/// corners' shares in it.
template <bool Textured, bool Blend>
void fillSmall(const RasterTarget& target, const Triangle& triangle, const PixelBox& box,
               const RasterSurface& surface) {
    const RasterCorner& a = *triangle.a;
    const RasterCorner& b = *triangle.b;
    const RasterCorner& c = *triangle.c;
    Edge<std::int32_t> bc(b, c, box);
    Edge<std::int32_t> ca(c, a, box);
    Edge<std::int32_t> ab(a, b, box);
    const Shader<Textured, Blend> shader(surface);
    const auto atA = loadLanes<FloatLanes>(a.values.data());
    float scale = 0.0F; // set at the first pixel: many triangles of a dense mesh have none
    for (std::int32_t y = box.top; y <= box.bottom; ++y) {
        std::int32_t e0 = bc.value;
        std::int32_t e1 = ca.value;
        std::int32_t e2 = ab.value;
        const std::size_t row = static_cast<std::size_t>(y) * static_cast<std::size_t>(target.width);
        for (std::int32_t x = box.left; x <= box.right; ++x) {
            if ((e0 | e1 | e2) >= 0) {
                const std::size_t at = row + static_cast<std::size_t>(x);
                if (scale == 0.0F) {
                    scale = 1.0F / static_cast<float>(triangle.area);
                }
                const float shareB = static_cast<float>(e1 + ca.bias) * scale;
                const float shareC = static_cast<float>(e2 + ab.bias) * scale;
                const FloatLanes values = atA + (loadLanes<FloatLanes>(b.values.data()) - atA) * allLanes(shareB) +
                    (loadLanes<FloatLanes>(c.values.data()) - atA) * allLanes(shareC);
                const float z = lane(values, 0);
                if (z < target.depths[at]) {
                    if constexpr (!Blend) {
                        target.depths[at] = z;
                    }
                    const IntLanes color = truncated(values + allLanes(0.5F));
                    std::int32_t s = 0;
                    std::int32_t t = 0;
                    if constexpr (Textured) {
                        s = static_cast<std::int32_t>(a.s + (b.s - a.s) * shareB + (c.s - a.s) * shareC);
                        t = static_cast<std::int32_t>(a.t + (b.t - a.t) * shareB + (c.t - a.t) * shareC);
                    }
                    shader.put(target.pixels[at], color[1], color[2], color[3], s, t);
                }
            }
            e0 += bc.stepX;
            e1 += ca.stepX;
            e2 += ab.stepX;
        }
        bc.value += bc.stepY;
        ca.value += ca.stepY;
        ab.value += ab.stepY;
    }
}

/// A value over the plane of a triangle.
struct Plane {
    Plane() = default;
    /// From its values at three corners, whose positions relative to the first are given in pixels,
    /// divided by twice the area.
    Plane(float a, float b, float c, const std::array<float, 4>& relative)
        : dx((b - a) * relative[3] - (c - a) * relative[1]),
          dy((c - a) * relative[0] - (b - a) * relative[2]), origin(a) {}

    [[nodiscard]] float at(float x, float y) const { return origin + dx * x + dy * y; }

    float dx = 0.0F;
    float dy = 0.0F;
    float origin = 0.0F;
};

/// Fills a triangle row by row, four pixels at once. Without `Perspective` values run straight across
/// the screen; with it they are divided by z at the corners and multiplied by it again in each pixel.
template <bool Perspective, bool Textured, bool Blend>
class RowFill {
  public:
    RowFill(const RasterTarget& target, const Triangle& triangle, const RasterSurface& surface)
        : target_(target), shader_(surface), originX_(triangle.a->x), originY_(triangle.a->y) {
        const RasterCorner& a = *triangle.a;
        const RasterCorner& b = *triangle.b;
        const RasterCorner& c = *triangle.c;
        const float scale = static_cast<float>(subpixels) / static_cast<float>(triangle.area);
        const std::array<float, 4> relative = {
            static_cast<float>(b.x - a.x) * scale, static_cast<float>(b.y - a.y) * scale,
            static_cast<float>(c.x - a.x) * scale, static_cast<float>(c.y - a.y) * scale};
        const auto z = [](const RasterCorner& corner) { return corner.values[0]; };
        const auto weight = [&z](const RasterCorner& corner) {
            return Perspective ? 1.0F / z(corner) : 1.0F;
        };
        const float wa = weight(a);
        const float wb = weight(b);
        const float wc = weight(c);
        planes_[0] = Perspective ? Plane(wa, wb, wc, relative) : Plane(z(a), z(b), z(c), relative);
        for (std::size_t k = 1; k < 4; ++k) {
            planes_[k] = Plane(a.values[k] * wa, b.values[k] * wb, c.values[k] * wc, relative);
        }
        if constexpr (Textured) {
            planes_[4] = Plane(a.s * wa, b.s * wb, c.s * wc, relative);
            planes_[5] = Plane(a.t * wa, b.t * wb, c.t * wc, relative);
            const auto [leastS, mostS] = range(a.s, b.s, c.s);
            const auto [leastT, mostT] = range(a.t, b.t, c.t);
            leastPosition_ = {leastS, leastT};
            mostPosition_ = {mostS, mostT};
        }
        const auto [least, most] = range(z(a), z(b), z(c));
        leastZ_ = least;
        mostZ_ = most;
    }

    /// Fills the pixels from `left` to `right` of a row.
    void fill(std::int32_t y, std::int32_t left, std::int32_t right) const {
        constexpr float half = 0.5F;
        constexpr float unit = 1.0F / static_cast<float>(subpixels);
        const float fromX = (static_cast<float>(left) + half) - static_cast<float>(originX_) * unit;
        const float fromY = (static_cast<float>(y) + half) - static_cast<float>(originY_) * unit;
        constexpr std::size_t used = Textured ? 6 : 4;
        constexpr FloatLanes ramp = {0, 1, 2, 3};
        FloatLanes values[used];
        FloatLanes steps[used];
        for (std::size_t k = 0; k < used; ++k) {
            values[k] = allLanes(planes_[k].at(fromX, fromY)) + ramp * allLanes(planes_[k].dx);
            steps[k] = allLanes(planes_[k].dx * laneCount);
        }
        const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(target_.width) +
                               static_cast<std::size_t>(left);
        BitmapPixel* pixels = target_.pixels + at;
        float* depths = target_.depths + at;
        constexpr IntLanes numbers = {0, 1, 2, 3};
        for (std::int32_t count = right - left + 1; count > 0; count -= laneCount) {
            const FloatLanes z =
                clampLanes(Perspective ? allLanes(1.0F) / values[0] : values[0], allLanes(leastZ_),
                           allLanes(mostZ_));
            const auto before = loadLanes<FloatLanes>(depths);
            const IntLanes pass = (z < before) & (numbers < allLanes(count));
            if (anyLane(pass)) {
                if constexpr (!Blend) {
                    storeLanes(depths, select(pass, z, before));
                }
                put(pixels, pass, values, Perspective ? z : allLanes(1.0F));
            }
            for (std::size_t k = 0; k < used; ++k) {
                values[k] += steps[k];
            }
            pixels += laneCount;
            depths += laneCount;
        }
    }

  private:
    void put(BitmapPixel* pixels, IntLanes pass, const FloatLanes* values, FloatLanes z) const {
        const FloatLanes half = allLanes(0.5F);
        IntLanes color[3];
        for (std::size_t k = 0; k < 3; ++k) {
            color[k] = truncated(
                clampLanes((Perspective ? values[k + 1] * z : values[k + 1]) + half, allLanes(0.0F),
                           allLanes(255.0F)));
        }
        if constexpr (!Textured && !Blend) {
            const IntLanes whole =
                allLanes(-0x1000000) | color[0] << 16 | color[1] << 8 | color[2];
            storeLanes(pixels, select(pass, whole, loadLanes<IntLanes>(pixels)));
        } else {
            IntLanes s = {};
            IntLanes t = {};
            if constexpr (Textured) {
                s = truncated(clampLanes(Perspective ? values[4] * z : values[4],
                                         allLanes(leastPosition_[0]), allLanes(mostPosition_[0])));
                t = truncated(clampLanes(Perspective ? values[5] * z : values[5],
                                         allLanes(leastPosition_[1]), allLanes(mostPosition_[1])));
            }
            for (int i = 0; i < laneCount; ++i) {
                if (pass[i] != 0) {
                    shader_.put(pixels[i], color[0][i], color[1][i], color[2][i], s[i], t[i]);
                }
            }
        }
    }

    const RasterTarget& target_;
    Shader<Textured, Blend> shader_;
    std::int32_t originX_;
    std::int32_t originY_;
    std::array<Plane, Textured ? 6 : 4> planes_; ///< z or 1 / z, red, green, blue, s, t
    float leastZ_ = 0.0F;
    float mostZ_ = 0.0F;
    std::array<float, 2> leastPosition_{};
    std::array<float, 2> mostPosition_{};
};

/// Narrows the run of pixels [left, right], counted from the box's left column, to those on the
/// inner side of an edge. The quotients are exact: their parts are whole numbers below 2^53, and
/// what they differ by from the next whole number is more than the rounding.
inline void narrow(const Edge<std::int64_t>& edge, std::int32_t& left, std::int32_t& right) {
    const auto value = static_cast<double>(edge.value);
    if (edge.stepX > 0) {
        if (edge.value < 0) {
            const auto step = static_cast<double>(edge.stepX);
            left = std::max(left, static_cast<std::int32_t>((step - 1 - value) / step));
        }
    } else if (edge.value < 0) {
        right = -1;
    } else if (edge.stepX < 0) {
        right = std::min(right, static_cast<std::int32_t>(
                                    std::min(value / -static_cast<double>(edge.stepX), 1e9)));
    }
}

template <bool Perspective, bool Textured, bool Blend>
void fillRows(const RasterTarget& target, const Triangle& triangle, const PixelBox& box,
              const RasterSurface& surface) {
    const RowFill<Perspective, Textured, Blend> rows(target, triangle, surface);
    std::array<Edge<std::int64_t>, 3> edges = {Edge<std::int64_t>(*triangle.b, *triangle.c, box),
                                               Edge<std::int64_t>(*triangle.c, *triangle.a, box),
                                               Edge<std::int64_t>(*triangle.a, *triangle.b, box)};
    for (std::int32_t y = box.top; y <= box.bottom; ++y) {
        std::int32_t left = 0;
        std::int32_t right = box.right - box.left;
        for (Edge<std::int64_t>& edge : edges) {
            narrow(edge, left, right);
            edge.value += edge.stepY;
        }
        if (left <= right) {
            rows.fill(y, box.left + left, box.left + right);
        }
    }
}

/// Whether values may run straight across the screen: z varies so little that the error, a quarter
/// of its variation at most, stays below a grey level and half a pixel of the texture.
template <bool Textured>
bool nearlyFlat(const Triangle& triangle) {
    const RasterCorner& a = *triangle.a;
    const RasterCorner& b = *triangle.b;
    const RasterCorner& c = *triangle.c;
    const auto [least, most] = range(a.values[0], b.values[0], c.values[0]);
    if (most >= least * 1.01F) {
        return false;
    }
    if constexpr (Textured) {
        const auto [leastS, mostS] = range(a.s, b.s, c.s);
        const auto [leastT, mostT] = range(a.t, b.t, c.t);
        const float range = std::max(mostS - leastS, mostT - leastT);
        return (most - least) * range < least * (2 * TextureSampler::steps);
    }
    return true;
}

template <bool Textured, bool Blend>
void fillTriangle(const RasterTarget& target, const Triangle& triangle,
                  const RasterSurface& surface) {
    constexpr std::int32_t half = subpixels / 2;
    const auto [minX, maxX] = range(triangle.a->x, triangle.b->x, triangle.c->x);
    const auto [minY, maxY] = range(triangle.a->y, triangle.b->y, triangle.c->y);
    constexpr std::int32_t shift = 8; // divides by the subpixels, rounding down
    static_assert(1 << shift == subpixels);
    const PixelBox box = {std::max((minX + half - 1) >> shift, 0),
                          std::max((minY + half - 1) >> shift, 0),
                          std::min((maxX - half) >> shift, target.width - 1),
                          std::min((maxY - half) >> shift, target.height - 1)};
    if (box.empty()) {
        return;
    }
    constexpr std::int32_t smallSide = 8 * subpixels;
    const bool flat = nearlyFlat<Textured>(triangle);
    if (flat && maxX - minX <= smallSide && maxY - minY <= smallSide) {
        fillSmall<Textured, Blend>(target, triangle, box, surface);
    } else if (flat) {
        fillRows<false, Textured, Blend>(target, triangle, box, surface);
    } else {
        fillRows<true, Textured, Blend>(target, triangle, box, surface);
    }
}

template <bool Textured, bool Blend>
void fillFan(const RasterTarget& target, std::span<const RasterCorner> corners,
             const RasterSurface& surface) {
    for (std::size_t i = 2; i < corners.size(); ++i) {
        Triangle triangle = {&corners[0], &corners[i - 1], &corners[i], 0};
        const RasterCorner& a = *triangle.a;
        const RasterCorner& b = *triangle.b;
        const RasterCorner& c = *triangle.c;
        triangle.area = std::int64_t{b.x - a.x} * (c.y - a.y) - std::int64_t{b.y - a.y} * (c.x - a.x);
        if (triangle.area < 0) {
            std::swap(triangle.b, triangle.c);
            triangle.area = -triangle.area;
        }
        if (triangle.area != 0) {
            fillTriangle<Textured, Blend>(target, triangle, surface);
        }
    }
}

} // namespace

void fillPolygon(const RasterTarget& target, std::span<const RasterCorner> corners,
                 const RasterSurface& surface) {
    if (surface.texture != nullptr) {
        if (surface.blend) {
            fillFan<true, true>(target, corners, surface);
        } else {
            fillFan<true, false>(target, corners, surface);
        }
    } else if (surface.blend) {
        fillFan<false, true>(target, corners, surface);
    } else {
        fillFan<false, false>(target, corners, surface);
    }
}

} // namespace korvane
