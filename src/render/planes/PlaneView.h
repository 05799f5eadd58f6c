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

    /// How the view lies on its bitmap: centred, in the document's scale, moved as its pan tells.
    [[nodiscard]] PlaneMapping mapping(const ModelDocument& document) const;

    /// Draws the document's frames, with dots only the ends of their lines, and brings their
    /// drawing caches up to date.
    void draw(ModelDocument& document, bool dots = false);
    /// The selected frame's lines and mark, this with a rim, once more, to be laid over the picture
    /// where other frames' lines cover them, as the last draw() had them; a null image if it drew
    /// neither. It uses the view's memory until the next call.
    [[nodiscard]] QImage selectionOverlay(const ModelDocument& document, bool dots = false);
    /// Of how many frames the last draw() had to work out anew where their vertices show.
    [[nodiscard]] std::size_t projectedFrames() const { return projectedFrames_; }

  private:
    void drawAxes(const PlaneMapping& mapping);
    void findOrigin(const PlaneMapping& mapping, FrameRecord& root);
    void drawOrigin(Bitmap& bitmap) const;
    /// Lines around the mark in a colour that it stands out from.
    void drawOriginRim();
    void projectFrame(const PlaneMapping& mapping, const DrawItem& item);
    void drawFrame(Bitmap& bitmap, const PlaneMapping& mapping, FrameRecord& frame,
                   bool dots) const;
    void drawCameraCentre(Bitmap& bitmap, const PlaneMapping& mapping, const Vec3& centre) const;

    ViewPlane plane_;
    Bitmap bitmap_;
    Bitmap overlay_;              ///< of one pixel until it is asked for
    PixelPoint origin_ = noPixel; ///< of the selected frame, if it has a mark
    PlaneColors colors_;
    DrawList list_;
    std::size_t projectedFrames_ = 0;
};

} // namespace korvane
