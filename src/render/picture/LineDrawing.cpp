#include "render/picture/LineDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace korvane {

namespace {

/// Within this distance a cut line keeps the exact pixels of the whole line: products of two such
/// lengths fit into 64 bits. Lines that reach farther are first cut to this.
constexpr std::int32_t exactReach = (1 << 28) - 1;

/// A line by its longer and its shorter side. Each step goes one pixel along the longer one. After
/// i steps it has gone (2 i shorter + longer) / (2 longer) pixels, rounded down, across.
struct Slope {
    std::int64_t longer;
    std::int64_t shorter;
    std::ptrdiff_t along;  ///< one pixel along the longer side, in pixels of memory
    std::ptrdiff_t across; ///< one pixel along the shorter side
};

/// Draws steps of the line from `at` on; `rest` is the remainder of the first one's rounding.
void drawSteps(BitmapPixel* at, const Slope& slope, std::int64_t rest, std::int64_t steps,
               BitmapPixel color) {
    // negative until a step across is due
    std::int64_t due = rest - 2 * slope.longer;
    *at = color;
    for (; steps > 0; --steps) {
        due += 2 * slope.shorter;
        // no branch: steps across are unpredictable
        const std::int64_t mask = ~(due >> 63);
        due -= 2 * slope.longer & mask;
        at += slope.along + (slope.across & static_cast<std::ptrdiff_t>(mask));
        *at = color;
    }
}

/// The distances from a line's start along one axis at which it enters and leaves the bitmap.
struct Reach {
    std::int64_t least;
    std::int64_t most;
};

Reach reachWithin(std::int64_t start, std::int64_t size, bool forward) {
    return forward ? Reach{-start, size - 1 - start} : Reach{start - (size - 1), start};
}

/// The first step at which the line has gone `distance` (at least 1) along its shorter side.
std::int64_t stepReaching(const Slope& slope, std::int64_t distance) {
    return (2 * distance * slope.longer - slope.longer + 2 * slope.shorter - 1) /
           (2 * slope.shorter);
}

/// Draws the part of a line within the bitmap.
void drawPart(Bitmap& bitmap, PixelPoint from, const Slope& slope, const Reach& along,
              const Reach& across, BitmapPixel color) {
    if (across.most < 0 || across.least > slope.shorter) {
        return;
    }
    std::int64_t first = std::max<std::int64_t>(0, along.least);
    std::int64_t last = std::min(slope.longer, along.most);
    if (across.least > 0) {
        first = std::max(first, stepReaching(slope, across.least));
    }
    if (across.most < slope.shorter) {
        last = std::min(last, stepReaching(slope, across.most + 1) - 1);
    }
    if (first > last) {
        return;
    }
    const std::int64_t gone = 2 * first * slope.shorter + slope.longer;
    const std::int64_t whole = slope.longer == 0 ? 0 : gone / (2 * slope.longer);
    const std::int64_t start =
        std::int64_t{from.y} * bitmap.width() + from.x + first * slope.along + whole * slope.across;
    drawSteps(bitmap.pixels() + start, slope, gone - whole * 2 * slope.longer, last - first, color);
}

/// Cuts a line with finite ends to the exact reach. Returns false if nothing is left.
bool cutToReach(std::pair<double, double>& x, std::pair<double, double>& y) {
    constexpr double reach = exactReach;
    double start = 0.0;
    double end = 1.0;
    for (const auto& [from, to] : {x, y}) {
        // in halves, as the difference of the ends may overflow
        const double way = to / 2 - from / 2;
        if (way == 0.0) {
            if (std::abs(from) > reach) {
                return false;
            }
            continue;
        }
        const double low = (-reach / 2 - from / 2) / way;
        const double high = (reach / 2 - from / 2) / way;
        start = std::max(start, std::min(low, high));
        end = std::min(end, std::max(low, high));
    }
    if (!(start <= end)) {
        return false;
    }
    for (auto* axis : {&x, &y}) {
        const auto [from, to] = *axis;
        const auto at = [reach, from = from, to = to](double share) {
            return std::clamp(from * (1 - share) + to * share, -reach, reach);
        };
        *axis = std::pair(at(start), at(end));
    }
    return true;
}

bool withinReach(PixelPoint at) {
    return std::abs(std::int64_t{at.x}) <= exactReach && std::abs(std::int64_t{at.y}) <= exactReach;
}

/// One bit for each side of the bitmap that the place lies beyond.
unsigned sidesBeyond(const Bitmap& bitmap, PixelPoint at) {
    return unsigned{at.x < 0} | unsigned{at.y < 0} << 1U | unsigned{at.x >= bitmap.width()} << 2U |
           unsigned{at.y >= bitmap.height()} << 3U;
}

struct Line {
    Line(const Bitmap& bitmap, PixelPoint from, PixelPoint to)
        : dx(std::int64_t{to.x} - from.x), dy(std::int64_t{to.y} - from.y),
          flat(std::abs(dx) >= std::abs(dy)) {
        const std::ptrdiff_t stride = bitmap.width();
        const std::ptrdiff_t stepX = dx < 0 ? -1 : 1;
        const std::ptrdiff_t stepY = dy < 0 ? -stride : stride;
        slope = flat ? Slope{std::abs(dx), std::abs(dy), stepX, stepY}
                     : Slope{std::abs(dy), std::abs(dx), stepY, stepX};
    }

    std::int64_t dx;
    std::int64_t dy;
    bool flat; ///< whether the longer side is horizontal
    Slope slope{};
};

/// Draws a line with an end outside the bitmap.
void drawCutLine(Bitmap& bitmap, PixelPoint from, PixelPoint to, BitmapPixel color) {
    if (!withinReach(from) || !withinReach(to)) {
        const auto number = [](std::int32_t at) { return static_cast<double>(at); };
        drawLine(bitmap, number(from.x), number(from.y), number(to.x), number(to.y), color);
        return;
    }
    const Line line(bitmap, from, to);
    const Reach reachX = reachWithin(from.x, bitmap.width(), line.dx >= 0);
    const Reach reachY = reachWithin(from.y, bitmap.height(), line.dy >= 0);
    drawPart(bitmap, from, line.slope, line.flat ? reachX : reachY, line.flat ? reachY : reachX,
             color);
}

} // namespace

void drawLine(Bitmap& bitmap, PixelPoint from, PixelPoint to, BitmapPixel color) {
    const unsigned beyondFrom = sidesBeyond(bitmap, from);
    const unsigned beyondTo = sidesBeyond(bitmap, to);
    if ((beyondFrom | beyondTo) == 0) {
        const Line line(bitmap, from, to);
        drawSteps(bitmap.pixels() + std::ptrdiff_t{from.y} * bitmap.width() + from.x, line.slope,
                  line.slope.longer, line.slope.longer, color);
    } else if ((beyondFrom & beyondTo) == 0) {
        drawCutLine(bitmap, from, to, color);
    }
}

void drawLine(Bitmap& bitmap, double fromX, double fromY, double toX, double toY,
              BitmapPixel color) {
    if (!std::isfinite(fromX) || !std::isfinite(fromY) || !std::isfinite(toX) ||
        !std::isfinite(toY)) {
        return;
    }
    std::pair x = {fromX, toX};
    std::pair y = {fromY, toY};
    if (cutToReach(x, y)) {
        drawLine(bitmap, pixelAt(x.first, y.first), pixelAt(x.second, y.second), color);
    }
}

void drawEllipse(Bitmap& bitmap, PixelPoint centre, std::int32_t radiusX, std::int32_t radiusY,
                 BitmapPixel color) {
    constexpr std::int32_t largest = 4096;
    const std::int64_t a = std::clamp(radiusX, 0, largest);
    const std::int64_t b = std::clamp(radiusY, 0, largest);
    const auto plot = [&](std::int64_t x, std::int64_t y) {
        drawPixel(bitmap, std::int64_t{centre.x} + x, std::int64_t{centre.y} + y, color);
    };
    // traces one quarter by the error of (x / a)^2 + (y / b)^2 = 1 and mirrors it
    std::int64_t x = -a;
    std::int64_t y = 0;
    std::int64_t stepX = (1 + 2 * x) * b * b;
    std::int64_t stepY = x * x;
    std::int64_t error = stepX + stepY;
    do {
        for (const std::int64_t sideX : {x, -x}) {
            plot(sideX, y);
            plot(sideX, -y);
        }
        const std::int64_t twice = 2 * error;
        if (twice >= stepX) {
            ++x;
            stepX += 2 * b * b;
            error += stepX;
        }
        if (twice <= stepY) {
            ++y;
            stepY += 2 * a * a;
            error += stepY;
        }
    } while (x <= 0);
    // a narrow ellipse ends before its tip
    for (; y <= b; ++y) {
        plot(0, y);
        plot(0, -y);
    }
}

} // namespace korvane
