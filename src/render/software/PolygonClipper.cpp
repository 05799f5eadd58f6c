#include "render/software/PolygonClipper.h"

namespace korvane {

namespace {

float between(float from, float to, float t) {
    return (to - from) * t + from;
}

Vec3 between(const Vec3& from, const Vec3& to, float t) {
    return {between(from.x, to.x, t), between(from.y, to.y, t), between(from.z, to.z, t)};
}

} // namespace

RenderVertex PolygonClipper::lineclip(std::size_t i, std::size_t j, float t) const {
    const RenderVertex& from = polygon_[i];
    const RenderVertex& to = polygon_[j];
    RenderVertex result;
    result.position = between(from.position, to.position, t);
    result.normal = between(from.normal, to.normal, t);
    result.u = between(from.u, to.u, t);
    result.v = between(from.v, to.v, t);
    for (std::size_t k = 0; k < 3; ++k) {
        result.color[k] = between(from.color[k], to.color[k], t);
    }
    return result;
}

int PolygonClipper::polyclip(int visible, float nx, float ny, float nz, float d) {
    if (visible != 1) {
        return visible;
    }
    const ClipPlane plane = {{nx, ny, nz}, d};
    const std::size_t count = polygon_.size();
    distances_.resize(count);
    bool allInside = count >= 2;
    for (std::size_t i = 0; i < count; ++i) {
        distances_[i] = plane.distance(polygon_[i].position);
        allInside = allInside && distances_[i] >= 0;
    }
    if (allInside) {
        return 1; // unchanged
    }
    cut_.clear();
    for (std::size_t i = 0; i < count; ++i) {
        const float inside = distances_[i];
        if (inside >= 0) {
            cut_.push_back(polygon_[i]);
            continue;
        }
        const std::size_t previous = i == 0 ? count - 1 : i - 1;
        const std::size_t next = i + 1 == count ? 0 : i + 1;
        // a neighbour on the plane is itself the crossing and is kept as a corner
        for (const std::size_t neighbour : {previous, next}) {
            if (distances_[neighbour] > 0) {
                cut_.push_back(lineclip(i, neighbour, inside / (inside - distances_[neighbour])));
            }
        }
    }
    if (cut_.size() < 2) {
        return 0;
    }
    polygon_.swap(cut_);
    return 1;
}

bool PolygonClipper::clip(const ViewGeometry& geometry) {
    int visible = 1;
    for (const ClipPlane& plane : geometry.planes) {
        visible = polyclip(visible, plane.normal.x, plane.normal.y, plane.normal.z, plane.d);
    }
    return visible == 1;
}

bool clipLine(const ViewGeometry& geometry, Vec3& a, Vec3& b) {
    for (const ClipPlane& plane : geometry.planes) {
        const float da = plane.distance(a);
        const float db = plane.distance(b);
        if (!(da >= 0) && !(db >= 0)) {
            return false;
        }
        if (!(da >= 0)) {
            a = between(a, b, da / (da - db));
        } else if (!(db >= 0)) {
            b = between(b, a, db / (db - da));
        }
    }
    return true;
}

} // namespace korvane
