#pragma once

#include "render/software/ScreenMesh.h"

#include <vector>

namespace korvane {

/// Draws lines and points into the 3D picture; nearer pixels win. It keeps its buffers, so that
/// drawing allocates nothing once they have grown.
class WirePainter {
  public:
    /// Outlines each face of the frame's mesh; with `dots` set in the view's state, draws only the
    /// corners. The frame's cache must be up to date.
    void drawMesh(const RasterContext& context, const DrawItem& item);
    /// Outlines the box around the mesh's vertices, turned as the frame is.
    static void drawBox(const RasterContext& context, const DrawItem& item);

  private:
    std::vector<ScreenVertex> screen_;
};

} // namespace korvane
