#pragma once

#include "model/document/ModelDocument.h"
#include "render/gl/GlLists.h"
#include "render/scene/Culling.h"
#include "render/scene/DrawList.h"
#include "render/scene/ViewState.h"

#include <cstddef>
#include <cstdint>

namespace korvane {

/// Statistics of an OpenGL view.
struct GlCounts {
    std::size_t meshes = 0;   ///< meshes drawn, counted each time
    std::size_t recorded = 0; ///< display lists recorded
    std::size_t uploads = 0;  ///< textures uploaded
    std::size_t errors = 0;   ///< OpenGL errors after redraws; only debug builds count them
};

/// Draws a model with OpenGL into the bound framebuffer object. A view belongs to one compatibility
/// context, which must be current at each call; textures and lists go with it.
class GlView {
  public:
    /// Sets up the context for the state and uploads the document's textures.
    void setUp(const ModelDocument& document, ViewState& state);
    /// Sets the size in device pixels, each side taken as at least 1.
    void resize(std::int32_t width, std::int32_t height);
    /// Draws the document's frames as its camera sees them, and brings their drawing caches up to
    /// date. Records the mode drawn in the state. Showing the picture is up to the caller.
    void redraw(ModelDocument& document, ViewState& state);

    [[nodiscard]] const GlCounts& counts() const { return counts_; }
    [[nodiscard]] std::size_t listCount() const { return lists_.count(); }
    [[nodiscard]] std::size_t textureCount() const { return textures_.count(); }

  private:
    void setProjection(float scale) const;
    void checkErrors();
    void drawPass(const DrawContext& context, const ModelDocument& document, bool translucent);
    void drawFrame(const DrawContext& context, const DrawItem& item, bool translucentPass);
    /// Outlines the selected frame's box after both passes, so that nothing blends over it.
    void drawSelection(const DrawContext& context, const ModelDocument& document);
    void drawFaces(FrameRecord& frame, bool translucent);

    ViewGeometry geometry_{1, 1};
    DrawList list_;
    DrawMaterials materials_;
    GlTextures textures_;
    GlLists lists_;
    GlCounts counts_;
};

} // namespace korvane
