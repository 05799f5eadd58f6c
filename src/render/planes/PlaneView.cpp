#include "render/planes/PlaneView.h"

#include "render/planes/PlaneCache.h"
#include "render/scene/SelectedFrame.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr std::int32_t markRadius = 4; ///< in pixels

/// Draws the edges of a mesh into a bitmap.
class EdgePainter {
  public:
    EdgePainter(Bitmap& bitmap, const PlaneMapping& mapping, const DrawCache& cache,
                const std::vector<PixelPoint>& points, const std::vector<MeshEdge>& edges)
        : bitmap_(bitmap), mapping_(mapping), world_(cache.WorldVertices), points_(points),
          edges_(edges) {}

    void drawLines(BitmapPixel color) const {
        for (const MeshEdge& edge : edges_) {
            const PixelPoint from = points_[edge.from];
            const PixelPoint to = points_[edge.to];
            if (from == noPixel || to == noPixel) {
                drawFarLine(edge, color);
            } else {
                drawLine(bitmap_, from, to, color);
            }
        }
    }
    void drawEnds(BitmapPixel color) const {
        for (const MeshEdge& edge : edges_) {
            for (const std::uint32_t end : {edge.from, edge.to}) {
                drawPixel(bitmap_, points_[end].x, points_[end].y, color);
            }
        }
    }

  private:
    void drawFarLine(const MeshEdge& edge, BitmapPixel color) const {
        const PlanePoint from = toPlane(mapping_.plane, world_[edge.from]);
        const PlanePoint to = toPlane(mapping_.plane, world_[edge.to]);
        drawLine(bitmap_, mapping_.screenX(from.u), mapping_.screenY(from.v),
                 mapping_.screenX(to.u), mapping_.screenY(to.v), color);
    }

    Bitmap& bitmap_;
    const PlaneMapping& mapping_;
    const std::vector<Vec3>& world_;
    const std::vector<PixelPoint>& points_;
    const std::vector<MeshEdge>& edges_;
};

} // namespace

PlaneMapping PlaneView::mapping(const ModelDocument& document) const {
    return planeMapping(plane_, bitmap_.width(), bitmap_.height(), document.PlaneScale,
                        document.PanVector);
}

void PlaneView::draw(ModelDocument& document, bool dots) {
    const PlaneMapping map = mapping(document);
    projectedFrames_ = 0;
    bitmap_.fill(colors_.frames.background);
    drawAxes(map);
    findOrigin(map, document.Root);
    drawOrigin(bitmap_);
    list_.rebuild(document.Root);
    for (const DrawItem& item : list_.items()) {
        if (item.frame->HasMesh) {
            projectFrame(map, item);
            drawFrame(bitmap_, map, *item.frame, dots);
        }
    }
    // last, as it usually lies within the model
    drawCameraCentre(bitmap_, map, document.CameraCenter);
}

QImage PlaneView::selectionOverlay(const ModelDocument& document, bool dots) {
    const auto& items = list_.items();
    const auto selected = std::find_if(items.begin(), items.end(), [](const DrawItem& item) {
        return item.frame->HasMesh && item.frame->SelectState == SelectState::Selected;
    });
    if (selected == items.end() && origin_ == noPixel) {
        return {};
    }
    const PlaneMapping map = mapping(document);
    overlay_.resize(bitmap_.width(), bitmap_.height());
    overlay_.fill(0);
    if (selected != items.end()) {
        drawFrame(overlay_, map, *selected->frame, dots);
    }
    drawOriginRim();
    drawOrigin(overlay_);
    drawCameraCentre(overlay_, map, document.CameraCenter); // always on top
    return overlayOf(overlay_);
}

void PlaneView::drawAxes(const PlaneMapping& mapping) {
    const double x = mapping.screenX(0);
    const double y = mapping.screenY(0);
    drawLine(bitmap_, x, 0, x, bitmap_.height() - 1, colors_.worldAxes);
    drawLine(bitmap_, 0, y, bitmap_.width() - 1, y, colors_.worldAxes);
}

void PlaneView::findOrigin(const PlaneMapping& mapping, FrameRecord& root) {
    origin_ = noPixel;
    const SelectedFrame found = findSelectedFrame(root);
    // the mark shows even if only the mesh is hidden
    if (found.frame->SelectState != SelectState::Selected || !found.frame->ViewFlags[0]) {
        return;
    }
    const PlanePoint origin = toPlane(plane_, VectorMatrix({}, found.world));
    origin_ = pixelAt(mapping.screenX(origin.u), mapping.screenY(origin.v));
}

void PlaneView::drawOrigin(Bitmap& bitmap) const {
    if (origin_ != noPixel) {
        // two lines, as one is hard to see in yellow
        drawEllipse(bitmap, origin_, markRadius, markRadius, colors_.objectAxes);
        drawEllipse(bitmap, origin_, markRadius + 1, markRadius + 1, colors_.objectAxes);
    }
}

void PlaneView::drawOriginRim() {
    if (origin_ == noPixel) {
        return;
    }
    const auto channel = [this](unsigned shift) { return colors_.objectAxes >> shift & 0xffU; };
    // perceived brightness, in thousandths of a level
    const std::uint32_t bright = 299 * channel(16) + 587 * channel(8) + 114 * channel(0);
    const BitmapPixel rim = bright < 128'000 ? 0xffffffffU : 0xff000000U;
    for (const std::int32_t radius : {markRadius - 1, markRadius + 2}) {
        drawEllipse(overlay_, origin_, radius, radius, rim);
    }
}

void PlaneView::projectFrame(const PlaneMapping& mapping, const DrawItem& item) {
    FrameRecord& frame = *item.frame;
    DrawCache& cache = refreshedCache(frame, item.world);
    if (planeCache(cache).project(mapping, cache)) {
        ++projectedFrames_;
    }
}

void PlaneView::drawFrame(Bitmap& bitmap, const PlaneMapping& mapping, FrameRecord& frame,
                          bool dots) const {
    DrawCache& cache = drawCache(frame);
    PlaneCache& planes = planeCache(cache);
    const EdgePainter painter(bitmap, mapping, cache, planes.points(mapping.plane),
                              planes.edges(frame.Mesh));
    const BitmapPixel color = wireColor(colors_.frames, frame.SelectState);
    if (dots) {
        painter.drawEnds(color);
    } else {
        painter.drawLines(color);
    }
}

void PlaneView::drawCameraCentre(Bitmap& bitmap, const PlaneMapping& mapping,
                                 const Vec3& centre) const {
    const PlanePoint place = toPlane(plane_, centre);
    const double x = mapping.screenX(place.u);
    const double y = mapping.screenY(place.v);
    drawLine(bitmap, x - markRadius, y, x + markRadius, y, colors_.cameraCentre);
    drawLine(bitmap, x, y - markRadius, x, y + markRadius, colors_.cameraCentre);
}

} // namespace korvane
