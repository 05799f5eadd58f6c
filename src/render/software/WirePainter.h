#pragma once

#include "render/software/ScreenMesh.h"

#include <vector>

namespace korvane {

/// Draws lines and points into the 3D picture, nearer pixels winning. It keeps its working memory,
/// so that drawing allocates nothing once that has grown.
class WirePainter {
  public:
    /// Outlines every face of the frame's mesh, or with dots marks their corners only. The frame's
    /// cache must be up to date.
    void drawMesh(const RasterContext& context, const DrawItem& item);
    /// Outlines the box around the mesh's vertices, turned as the frame is.
    static void drawBox(const RasterContext& context, const DrawItem& item);

  private:
    std::vector<ScreenVertex> screen_;
};

} // namespace korvane
