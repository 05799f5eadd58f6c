#pragma once

#include "model/document/ModelDocument.h"
#include "render/picture/Bitmap.h"
#include "render/scene/ViewState.h"
#include "render/software/MeshPainter.h"
#include "render/software/WirePainter.h"

#include <vector>

namespace korvane {

/// Draws a model into a bitmap, without a graphics card.
class SoftwareView {
  public:
    /// Sets the size in device pixels, each side taken as at least 1.
    void resize(std::int32_t width, std::int32_t height);
    [[nodiscard]] const ViewGeometry& geometry() const { return geometry_; }
    /// The picture of the last redraw.
    [[nodiscard]] const Bitmap& bitmap() const { return bitmap_; }

    /// Draws the document's frames as its camera sees them, and brings their drawing caches up to
    /// date. Records the mode drawn in the state.
    void redraw(ModelDocument& document, ViewState& state);

  private:
    void drawFrame(const RasterContext& context, const DrawItem& item, bool translucentPass);
    /// Called after both passes, so that nothing blends over the box.
    void drawSelectedBox(const RasterContext& context);

    ViewGeometry geometry_{1, 1};
    Bitmap bitmap_;
    std::vector<float> depths_ = std::vector<float>(1 + Bitmap::slack);
    DrawList list_;
    MeshPainter meshes_;
    WirePainter wires_;
};

} // namespace korvane
