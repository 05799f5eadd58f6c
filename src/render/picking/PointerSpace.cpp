#include "render/picking/PointerSpace.h"

#include "render/scene/Culling.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

/// A further bit, for a point that no face can be drawn with.
constexpr std::uint32_t nowhere = 1U << 31U;

/// The cross product of x and y: its sign says how a and b run around the pointer.
double product(const PointerPoint& a, const PointerPoint& b) {
    return double{a.x} * b.y - double{a.y} * b.x;
}

/// The start and end of the part of a line within a depth range, as fractions of the line; the
/// start lies above the end if no part does.
std::pair<double, double> partWithin(const DepthRange& depth, double from, double to) {
    if (from == to) {
        return from >= depth.nearest && from <= depth.farthest ? std::pair(0.0, 1.0)
                                                               : std::pair(1.0, 0.0);
    }
    const double atNearest = (depth.nearest - from) / (to - from);
    const double atFarthest = (depth.farthest - from) / (to - from);
    return {std::max(std::min(atNearest, atFarthest), 0.0),
            std::min(std::max(atNearest, atFarthest), 1.0)};
}

} // namespace

void PointerSpace::add(float x, float y, float z) {
    // the first four sides are planes through the eye, so this also holds behind it
    const float edge = reach_ * z;
    std::uint32_t beyond = (x > edge ? 1U : 0U) | (x < -edge ? 2U : 0U) | (y > edge ? 4U : 0U) |
                           (y < -edge ? 8U : 0U) | (z < depth_.nearest ? 16U : 0U) |
                           (z > depth_.farthest ? 32U : 0U);
    if (!usablePosition({x, y, z})) {
        beyond |= nowhere;
    }
    points_.push_back({x, y, z, beyond});
}

bool PointerSpace::reaches(std::span<const std::uint32_t> corners) const {
    std::uint32_t all = ~nowhere;
    std::uint32_t some = 0;
    for (const std::uint32_t corner : corners) {
        if (corner >= points_.size()) {
            return false;
        }
        all &= points_[corner].beyond;
        some |= points_[corner].beyond;
    }
    return all == 0 && (some & nowhere) == 0;
}

std::optional<double> PointerSpace::depthUnder(std::span<const std::uint32_t> corners,
                                               int sides) const {
    if (corners.size() < 3 || !reaches(corners)) {
        return std::nullopt;
    }
    const PointerPoint& first = points_[corners[0]];
    double area = 0.0;
    std::optional<double> nearest;
    for (std::size_t k = 2; k < corners.size(); ++k) {
        const PointerPoint& b = points_[corners[k - 1]];
        const PointerPoint& c = points_[corners[k]];
        // the weight of each corner at the pointer
        const double ofFirst = product(b, c);
        const double ofB = product(c, first);
        const double ofC = product(first, b);
        const double sum = ofFirst + ofB + ofC;
        area += sum;
        const bool inside =
            (ofFirst >= 0 && ofB >= 0 && ofC >= 0) || (ofFirst <= 0 && ofB <= 0 && ofC <= 0);
        if (!inside || sum == 0.0) {
            continue;
        }
        const double depth = (ofFirst * first.z + ofB * b.z + ofC * c.z) / sum;
        if (depth >= depth_.nearest && depth <= depth_.farthest) {
            nearest = std::min(nearest.value_or(depth), depth);
        }
    }
    return sides == 0 || area * sides > 0 ? nearest : std::nullopt;
}

std::optional<double> PointerSpace::lineDistance(std::span<const std::uint32_t> corners) const {
    std::optional<double> nearest;
    if (!reaches(corners)) {
        return nearest;
    }
    for (std::size_t k = 0; k < corners.size(); ++k) {
        const PointerPoint& from = points_[corners[k]];
        const PointerPoint& to = points_[corners[k + 1 == corners.size() ? 0 : k + 1]];
        if ((from.beyond & to.beyond) != 0) {
            continue;
        }
        if (const std::optional<double> distance = distanceTo(from, to)) {
            nearest = std::min(nearest.value_or(*distance), *distance);
        }
    }
    return nearest;
}

std::optional<double> PointerSpace::distanceTo(const PointerPoint& a, const PointerPoint& b) const {
    const auto [begin, end] = partWithin(depth_, a.z, b.z);
    if (begin > end) {
        return std::nullopt;
    }
    const auto shown = [&](double share) {
        const double z = std::lerp(double{a.z}, double{b.z}, share);
        return std::pair(std::lerp(double{a.x}, double{b.x}, share) / z,
                         std::lerp(double{a.y}, double{b.y}, share) / z);
    };
    const auto [fromX, fromY] = shown(begin);
    const auto [toX, toY] = shown(end);
    const double wayX = toX - fromX;
    const double wayY = toY - fromY;
    const double squared = wayX * wayX + wayY * wayY;
    // the fraction of the line where it is nearest to the pointer
    const double at =
        squared > 0 ? std::clamp(-(fromX * wayX + fromY * wayY) / squared, 0.0, 1.0) : 0.0;
    const double distance = std::hypot(fromX + at * wayX, fromY + at * wayY);
    return distance <= reach_ ? std::optional(distance) : std::nullopt;
}

} // namespace korvane
