#pragma once

#include "model/document/ModelDocument.h"
#include "render/drags/ViewPlane.h"
#include "render/picture/Bitmap.h"
#include "render/picture/LineDrawing.h"
#include "render/scene/DrawList.h"
#include "render/scene/ViewState.h"

#include <cstddef>

namespace korvane {

/// A 2D view: draws a document's frames as lines, seen along one of the world's axes.
class PlaneView {
  public:
    explicit PlaneView(ViewPlane plane) : plane_(plane) { bitmap_.resize(1, 1); }

    [[nodiscard]] ViewPlane plane() const { return plane_; }
    /// Sets the size in device pixels, each side taken as at least 1.
    void resize(std::int32_t width, std::int32_t height) { bitmap_.resize(width, height); }
    /// The picture of the last draw().
    [[nodiscard]] const Bitmap& bitmap() const { return bitmap_; }
    void setColors(const PlaneColors& colors) { colors_ = colors; }
    [[nodiscard]] const PlaneColors& colors() const { return colors_; }

    /// The mapping of the plane to the bitmap: centred, with the document's scale and pan.
    [[nodiscard]] PlaneMapping mapping(const ModelDocument& document) const;

    /// Draws the edges of the document's frames, with `dots` only their ends, and brings the
    /// drawing caches up to date.
    void draw(ModelDocument& document, bool dots = false);
    /// An overlay with the selected frame's edges and rimmed mark, for where other frames' lines
    /// cover them; they are those of the last draw(). A null image if that drew neither. It uses
    /// the view's memory until the next call.
    [[nodiscard]] QImage selectionOverlay(const ModelDocument& document, bool dots = false);
    /// The number of frames whose vertices the last draw() had to project anew.
    [[nodiscard]] std::size_t projectedFrames() const { return projectedFrames_; }

  private:
    void drawAxes(const PlaneMapping& mapping);
    void findOrigin(const PlaneMapping& mapping, FrameRecord& root);
    void drawOrigin(Bitmap& bitmap) const;
    /// Draws lines around the mark in a contrasting colour.
    void drawOriginRim();
    void projectFrame(const PlaneMapping& mapping, const DrawItem& item);
    void drawFrame(Bitmap& bitmap, const PlaneMapping& mapping, FrameRecord& frame,
                   bool dots) const;
    void drawCameraCentre(Bitmap& bitmap, const PlaneMapping& mapping, const Vec3& centre) const;

    ViewPlane plane_;
    Bitmap bitmap_;
    Bitmap overlay_;              ///< one pixel until it is first needed
    PixelPoint origin_ = noPixel; ///< of the selected frame, if marked
    PlaneColors colors_;
    DrawList list_;
    std::size_t projectedFrames_ = 0;
};

} // namespace korvane
