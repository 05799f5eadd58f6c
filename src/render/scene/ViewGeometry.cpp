#include "render/scene/ViewGeometry.h"

#include "render/scene/ViewState.h"

#include <algorithm>
#include <cmath>

namespace korvane {

ViewGeometry::ViewGeometry(std::int32_t viewWidth, std::int32_t viewHeight)
    : width(std::max(viewWidth, 0)), height(std::max(viewHeight, 0)), cx(width / 2),
      cy(height / 2) {
    width = std::max(width, 1);
    height = std::max(height, 1);
    constexpr float fieldOfView = (1.0F / 3.0F) * viewPi;
    f = static_cast<float>((cx / std::tan(fieldOfView / 2.0)) *
                           (static_cast<double>(height) / width));
    if (f == 0.0F) {
        f = 1.0F;
    }
    constexpr double lean = 0.0001;
    const double a = std::atan2(double(cx), double{f}) - lean;
    const double b = std::atan2(double(cy), double{f}) - lean;
    const auto ca = static_cast<float>(std::cos(a));
    const auto sa = static_cast<float>(std::sin(a));
    const auto cb = static_cast<float>(std::cos(b));
    const auto sb = static_cast<float>(std::sin(b));
    planes = {{{{0, 0, 1}, nearZ},
               {{ca, 0, sa}, 0},
               {{-ca, 0, sa}, 0},
               {{0, cb, sb}, 0},
               {{0, -cb, sb}, 0}}};
}

} // namespace korvane
