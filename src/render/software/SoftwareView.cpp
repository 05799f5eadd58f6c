#include "render/software/SoftwareView.h"

#include <algorithm>

namespace korvane {

void SoftwareView::resize(std::int32_t width, std::int32_t height) {
    // all or nothing: any allocation may fail
    const ViewGeometry geometry(width, height);
    std::vector<float> depths(static_cast<std::size_t>(geometry.width) *
                                  static_cast<std::size_t>(geometry.height) +
                              Bitmap::slack);
    bitmap_.resize(geometry.width, geometry.height);
    depths_.swap(depths);
    geometry_ = geometry;
}

void SoftwareView::redraw(ModelDocument& document, ViewState& state) {
    std::fill(depths_.begin(), depths_.end(), ViewGeometry::farZ);
    bitmap_.fill(state.colors.background);
    const Camera camera(state.angles, document.CameraDistance, document.CameraCenter,
                        state.scaleFactor);
    const RasterContext context = {
        {geometry_, state, camera},
        {bitmap_.pixels(), depths_.data(), geometry_.width, geometry_.height}};
    list_.rebuild(document.Root);
    meshes_.begin(document.Materials, state);
    for (const bool translucentPass : {false, true}) {
        for (const DrawItem& item : list_.items()) {
            if (item.frame->HasMesh) {
                drawFrame(context, item, translucentPass);
            }
        }
    }
    if (state.mode != RenderMode::Wireframe) {
        drawSelectedBox(context);
    }
    state.lastDrawnMode = state.mode;
}

void SoftwareView::drawFrame(const RasterContext& context, const DrawItem& item,
                             bool translucentPass) {
    refreshedCache(*item.frame, item.world);
    if (context.state.mode != RenderMode::Wireframe) {
        meshes_.draw(context, item, translucentPass);
    } else if (!translucentPass) {
        wires_.drawMesh(context, item);
    }
}

void SoftwareView::drawSelectedBox(const RasterContext& context) {
    for (const DrawItem& item : list_.items()) {
        if (item.frame->HasMesh && item.frame->SelectState == SelectState::Selected) {
            WirePainter::drawBox(context, item);
        }
    }
}

} // namespace korvane
