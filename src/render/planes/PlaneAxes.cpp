#include "render/planes/PlaneAxes.h"

#include <utility>

namespace korvane {

std::array<std::optional<PlaneAxis>, 2> planeAxes(const PlaneMapping& mapping, std::int32_t width,
                                                  std::int32_t height) {
    const double x = mapping.screenX(0);
    const double y = mapping.screenY(0);
    std::array<std::optional<PlaneAxis>, 2> found;
    constexpr std::pair<char, Vec3> axes[] = {{'X', {1, 0, 0}}, {'Y', {0, 1, 0}}, {'Z', {0, 0, 1}}};
    for (const auto& [letter, axis] : axes) {
        const PlanePoint way = toPlane(mapping.plane, axis);
        if (way.u != 0 && y >= 0 && y < height) {
            found[0] = {letter, way, way.u > 0 ? width - 1.0 : 0.0, y};
        } else if (way.v != 0 && x >= 0 && x < width) {
            found[1] = {letter, way, x, way.v > 0 ? 0.0 : height - 1.0};
        }
    }
    return found;
}

} // namespace korvane
