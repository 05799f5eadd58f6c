#pragma once

#include <QRect>

namespace korvane {

/// Where the views lie in the area that they share.
struct ViewPlaces {
    QRect xz;
    QRect space;
    QRect xy;
    QRect zy;

    bool operator==(const ViewPlaces&) const = default;
};

/// Four views of the same size, two by two. Without the 2D views the 3D view has all of the area.
ViewPlaces viewPlaces(const QSize& area, bool planes);

} // namespace korvane
