#include "render/software/WirePainter.h"

#include "render/software/PolygonClipper.h"

#include <algorithm>
#include <cstdlib>

namespace korvane {

namespace {

void drawPoint(const RasterTarget& target, std::int32_t x, std::int32_t y, float z,
               BitmapPixel color) {
    if (x < 0 || y < 0 || x >= target.width || y >= target.height) {
        return;
    }
    const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(target.width) +
                           static_cast<std::size_t>(x);
    if (z <= target.depths[at] && z < ViewGeometry::farZ) {
        target.depths[at] = z;
        target.pixels[at] = color;
    }
}

std::int32_t pixelOf(double subpixel) {
    return static_cast<std::int32_t>(subpixel) / subpixels;
}

/// Draws a line between two points inside the planes, one pixel for each step of its longer side.
void drawLine(const RasterTarget& target, const ScreenVertex& from, const ScreenVertex& to,
              BitmapPixel color) {
    const std::int32_t dx = to.x - from.x;
    const std::int32_t dy = to.y - from.y;
    const std::int32_t steps = std::max(std::abs(dx), std::abs(dy)) / subpixels + 1;
    const double stepX = static_cast<double>(dx) / steps;
    const double stepY = static_cast<double>(dy) / steps;
    // 1 / z, not z, is linear on the screen
    const double start = 1.0 / from.z;
    const double step = (1.0 / to.z - start) / steps;
    for (std::int32_t i = 0; i <= steps; ++i) {
        drawPoint(target, pixelOf(from.x + i * stepX), pixelOf(from.y + i * stepY),
                  static_cast<float>(1.0 / (start + i * step)), color);
    }
}

/// Draws a line between two points of view space, cut at the planes.
void drawClipped(const RasterContext& context, Vec3 a, Vec3 b, BitmapPixel color) {
    if (!usablePosition(a) || !usablePosition(b) || !clipLine(context.geometry, a, b)) {
        return;
    }
    const auto from = projected(context.geometry, a);
    const auto to = projected(context.geometry, b);
    drawLine(context.target, {from[0], from[1], a.z, 0}, {to[0], to[1], b.z, 0}, color);
}

} // namespace

void WirePainter::drawMesh(const RasterContext& context, const DrawItem& item) {
    const Containment where = containment(context, item);
    if (where == Containment::Outside) {
        return;
    }
    const DrawCache& cache = drawCache(*item.frame);
    const BitmapPixel color = wireColor(context.state.colors, item.frame->SelectState);
    projectVertices(context, cache, where, screen_);
    const auto view = [&](std::uint32_t vertex) {
        return context.camera.toView(cache.WorldVertices[vertex]);
    };
    const PolygonList& faces = item.frame->Mesh.Faces;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const std::span<const std::uint32_t> corners = faces[i];
        if (std::any_of(corners.begin(), corners.end(),
                        [this](std::uint32_t corner) { return corner >= screen_.size(); })) {
            continue;
        }
        for (std::size_t k = 0; k < corners.size(); ++k) {
            const ScreenVertex& from = screen_[corners[k]];
            if (context.state.dots) {
                if (from.outside == 0) {
                    drawPoint(context.target, from.x / subpixels, from.y / subpixels, from.z,
                              color);
                }
                continue;
            }
            const std::uint32_t next = corners[k + 1 == corners.size() ? 0 : k + 1];
            const ScreenVertex& to = screen_[next];
            if ((from.outside | to.outside) == 0) {
                drawLine(context.target, from, to, color);
            } else if ((from.outside & to.outside) == 0) {
                drawClipped(context, view(corners[k]), view(next), color);
            }
        }
    }
}

void WirePainter::drawBox(const RasterContext& context, const DrawItem& item) {
    const DrawCache& cache = drawCache(*item.frame);
    if (cache.bounds().empty) {
        return;
    }
    std::array<Vec3, 8> corners = boxCorners(cache.bounds());
    for (Vec3& corner : corners) {
        corner = context.camera.toView(VectorMatrix(corner, item.world));
    }
    const BitmapPixel color = wireColor(context.state.colors, item.frame->SelectState);
    for (std::size_t from = 0; from < corners.size(); ++from) {
        for (const std::size_t axis : {1U, 2U, 4U}) {
            if ((from & axis) == 0) {
                drawClipped(context, corners[from], corners[from | axis], color);
            }
        }
    }
}

} // namespace korvane
