#include "render/software/PolygonFill.h"

#include "render/software/BlockShader.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// The pixels whose centres a triangle may cover.
struct PixelBox {
    std::int32_t left, top, right, bottom; // all four inclusive

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

/// The edge from p to q: `value` is 0 or more on its inner side. A pixel centre on an edge belongs
/// to the triangle of which that is a left or top edge.
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

/// The interpolated values: z or 1 / z, red, green, blue and the position in the texture.
using Values = std::array<float, 6>;

template <bool Textured>
inline constexpr std::size_t usedValues = Textured ? 6 : 4;

/// The values of a corner, divided by z for perspective.
template <bool Perspective, bool Textured>
Values cornerValues(const RasterCorner& corner) {
    const float z = corner.values[0];
    const float weight = Perspective ? 1.0F / z : 1.0F;
    Values values; // NOLINT(cppcoreguidelines-pro-type-member-init): only the used ones are read
    values[0] = Perspective ? weight : z;
    for (std::size_t k = 1; k < 4; ++k) {
        values[k] = corner.values[k] * weight;
    }
    if constexpr (Textured) {
        values[4] = corner.s * weight;
        values[5] = corner.t * weight;
    }
    return values;
}

/// Fills a triangle of a few pixels: tests each pixel of its box, four at once, and weights the
/// corners' values by their shares. Without `Perspective` values are linear on the screen; with it
/// they are divided by z at the corners and multiplied by it again in each pixel.
template <bool Perspective, bool Textured, bool Blend>
class SmallFill {
  public:
    SmallFill(const RasterTarget& target, const Triangle& triangle, const RasterSurface& surface)
        : target_(target), triangle_(triangle), shader_(surface) {}

    void fill(const PixelBox& box) {
        Edge<std::int32_t> bc(*triangle_.b, *triangle_.c, box);
        Edge<std::int32_t> ca(*triangle_.c, *triangle_.a, box);
        Edge<std::int32_t> ab(*triangle_.a, *triangle_.b, box);
        constexpr IntLanes ramp = {0, 1, 2, 3};
        for (std::int32_t y = box.top; y <= box.bottom; ++y) {
            IntLanes e0 = allLanes(bc.value) + ramp * allLanes(bc.stepX);
            IntLanes e1 = allLanes(ca.value) + ramp * allLanes(ca.stepX);
            IntLanes e2 = allLanes(ab.value) + ramp * allLanes(ab.stepX);
            const std::size_t row =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(target_.width);
            for (std::int32_t x = box.left; x <= box.right; x += laneCount) {
                const std::int32_t count = box.right - x + 1;
                const IntLanes inside = ((e0 | e1 | e2) >= allLanes(0)) & (ramp < allLanes(count));
                if (anyLane(inside)) {
                    fillBlock(row + static_cast<std::size_t>(x), inside, e1 + allLanes(ca.bias),
                              e2 + allLanes(ab.bias));
                }
                e0 += allLanes(bc.stepX * laneCount);
                e1 += allLanes(ca.stepX * laneCount);
                e2 += allLanes(ab.stepX * laneCount);
            }
            bc.value += bc.stepY;
            ca.value += ca.stepY;
            ab.value += ab.stepY;
        }
    }

  private:
    /// `partB` and `partC` are the shares of the corners b and c in twice the area.
    void fillBlock(std::size_t at, IntLanes inside, IntLanes partB, IntLanes partC) {
        if (!ready_) { // deferred: many triangles of a dense mesh hold no pixel
            prepare();
        }
        const FloatLanes shareB = numbers(partB);
        const FloatLanes shareC = numbers(partC);
        const auto value = [&](std::size_t k) {
            return allLanes(atA_[k]) + allLanes(toB_[k]) * shareB + allLanes(toC_[k]) * shareC;
        };
        const FloatLanes z = Perspective ? allLanes(1.0F) / value(0) : value(0);
        const auto before = loadLanes<FloatLanes>(target_.depths + at);
        const IntLanes pass = inside & (z < before);
        if (!anyLane(pass)) {
            return;
        }
        if constexpr (!Blend) {
            storeLanes(target_.depths + at, select(pass, z, before));
        }
        const auto corrected = [&](std::size_t k) { return Perspective ? value(k) * z : value(k); };
        FloatLanes s = {};
        FloatLanes t = {};
        if constexpr (Textured) {
            s = clampLanes(corrected(4), allLanes(0.0F), allLanes(maxTexturePosition));
            t = clampLanes(corrected(5), allLanes(0.0F), allLanes(maxTexturePosition));
        }
        constexpr float full = 255.0F;
        const auto color = [&](std::size_t k) {
            return clampLanes(corrected(k), allLanes(0.0F), allLanes(full));
        };
        shader_.put(target_.pixels + at, pass, {color(1), color(2), color(3)}, s, t);
    }
    void prepare() {
        ready_ = true;
        const Values a = cornerValues<Perspective, Textured>(*triangle_.a);
        const Values b = cornerValues<Perspective, Textured>(*triangle_.b);
        const Values c = cornerValues<Perspective, Textured>(*triangle_.c);
        const float scale = 1.0F / static_cast<float>(triangle_.area);
        for (std::size_t k = 0; k < usedValues<Textured>; ++k) {
            atA_[k] = a[k];
            toB_[k] = (b[k] - a[k]) * scale;
            toC_[k] = (c[k] - a[k]) * scale;
        }
    }

    const RasterTarget& target_;
    const Triangle& triangle_;
    BlockShader<Textured, Blend> shader_;
    bool ready_ = false;
    Values atA_;
    Values toB_; ///< difference to the corner b per unit of twice the area
    Values toC_;
};

/// A value that is linear over a triangle.
struct Plane {
    Plane() = default;
    /// From the values at three corners. `relative` has the positions of b and c from a in pixels,
    /// divided by twice the area.
    Plane(float a, float b, float c, const std::array<float, 4>& relative)
        : dx((b - a) * relative[3] - (c - a) * relative[1]),
          dy((c - a) * relative[0] - (b - a) * relative[2]), origin(a) {}

    [[nodiscard]] float at(float x, float y) const { return origin + dx * x + dy * y; }

    float dx = 0.0F;
    float dy = 0.0F;
    float origin = 0.0F;
};

/// Fills a triangle row by row, four pixels at once; see SmallFill for `Perspective`.
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
        const Values atA = cornerValues<Perspective, Textured>(a);
        const Values atB = cornerValues<Perspective, Textured>(b);
        const Values atC = cornerValues<Perspective, Textured>(c);
        for (std::size_t k = 0; k < planes_.size(); ++k) {
            planes_[k] = Plane(atA[k], atB[k], atC[k], relative);
        }
        if constexpr (Textured) {
            positionS_ = range(a.s, b.s, c.s);
            positionT_ = range(a.t, b.t, c.t);
        }
        z_ = range(a.values[0], b.values[0], c.values[0]);
    }

    /// Fills the pixels from `left` to `right` of a row.
    void fill(std::int32_t y, std::int32_t left, std::int32_t right) const {
        constexpr float half = 0.5F;
        constexpr float unit = 1.0F / static_cast<float>(subpixels);
        const float fromX = (static_cast<float>(left) + half) - static_cast<float>(originX_) * unit;
        const float fromY = (static_cast<float>(y) + half) - static_cast<float>(originY_) * unit;
        constexpr std::size_t used = usedValues<Textured>;
        constexpr FloatLanes ramp = {0, 1, 2, 3};
        FloatLanes values[used];
        FloatLanes steps[used];
        for (std::size_t k = 0; k < used; ++k) {
            values[k] = allLanes(planes_[k].at(fromX, fromY)) + ramp * allLanes(planes_[k].dx);
            steps[k] = allLanes(planes_[k].dx * laneCount);
        }
        const std::size_t at =
            static_cast<std::size_t>(y) * static_cast<std::size_t>(target_.width) +
            static_cast<std::size_t>(left);
        BitmapPixel* pixels = target_.pixels + at;
        float* depths = target_.depths + at;
        constexpr IntLanes numbers = {0, 1, 2, 3};
        for (std::int32_t count = right - left + 1; count > 0; count -= laneCount) {
            const FloatLanes z = clampLanes(Perspective ? allLanes(1.0F) / values[0] : values[0],
                                            allLanes(z_[0]), allLanes(z_[1]));
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
        const auto value = [&](std::size_t k, float least, float most) {
            return clampLanes(Perspective ? values[k] * z : values[k], allLanes(least),
                              allLanes(most));
        };
        constexpr float full = 255.0F;
        FloatLanes s = {};
        FloatLanes t = {};
        if constexpr (Textured) {
            s = value(4, positionS_[0], positionS_[1]);
            t = value(5, positionT_[0], positionT_[1]);
        }
        shader_.put(pixels, pass, {value(1, 0, full), value(2, 0, full), value(3, 0, full)}, s, t);
    }

    const RasterTarget& target_;
    BlockShader<Textured, Blend> shader_;
    std::int32_t originX_;
    std::int32_t originY_;
    std::array<Plane, usedValues<Textured>> planes_;
    // the ranges at the corners; rounding may take values beyond them
    std::array<float, 2> z_;
    std::array<float, 2> positionS_{};
    std::array<float, 2> positionT_{};
};

/// Narrows the pixels [left, right], counted from the box's left column, to those on the inner side
/// of an edge. The truncated quotients are exact: dividend and divisor are integers below 2^53, and
/// no quotient comes closer to the next integer than the rounding error.
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

/// Whether values may be linear on the screen. Halfway along an edge the error is then a quarter of
/// the relative variation of z, times the change of the value: it must stay below a grey level and
/// half a texture pixel.
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
    constexpr std::int32_t shift = 8; // divides by `subpixels`, rounding down
    static_assert(1 << shift == subpixels);
    const PixelBox box = {std::max((minX + half - 1) >> shift, 0),
                          std::max((minY + half - 1) >> shift, 0),
                          std::min((maxX - half) >> shift, target.width - 1),
                          std::min((maxY - half) >> shift, target.height - 1)};
    if (box.empty()) {
        return;
    }
    constexpr std::int32_t smallSide = 12 * subpixels;
    const bool small = maxX - minX <= smallSide && maxY - minY <= smallSide;
    const bool flat = nearlyFlat<Textured>(triangle);
    if (small && flat) {
        SmallFill<false, Textured, Blend>(target, triangle, surface).fill(box);
    } else if (small) {
        SmallFill<true, Textured, Blend>(target, triangle, surface).fill(box);
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
        triangle.area = (std::int64_t{b.x} - a.x) * (std::int64_t{c.y} - a.y) -
                        (std::int64_t{b.y} - a.y) * (std::int64_t{c.x} - a.x);
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
