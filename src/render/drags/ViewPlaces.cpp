#include "render/drags/ViewPlaces.h"

namespace korvane {

ViewPlaces viewPlaces(const QSize& area, bool planes) {
    if (!planes) {
        return {.space = QRect(QPoint(0, 0), area)};
    }
    const QSize half(area.width() / 2, area.height() / 2); // an odd pixel stays uncovered
    const QPoint right(half.width(), 0);
    const QPoint below(0, half.height());
    return {.xz = {QPoint(0, 0), half},
            .space = {right, half},
            .xy = {below, half},
            .zy = {right + below, half}};
}

} // namespace korvane
