#pragma once

#include "model/document/ModelDocument.h"
#include "render/scene/ViewGeometry.h"
#include "render/scene/ViewState.h"

namespace korvane {

/// What is to be seen: the whole model, or the selected frame with all below it.
enum class Seen { Model, Selection };

// Both move the document's views to where a just-opened model is seen whole and centred, whatever
// its size, for an empty model to a sensible place. A selected frame with nothing to show is only
// centred. They bring the drawing caches up to date.

/// Moves the camera, but does not turn it, to where the model and the box of the selected frame are
/// seen whole whichever way they are turned, and sets the scale factor of the 3D view: 1 unless the
/// model would reach out of the depth of the view, or is too small for its near plane.
void startCamera(ModelDocument& document, ViewState& state, const ViewGeometry& geometry,
                 Seen seen = Seen::Model);

/// Gives the 2D views, each of a size in device pixels, one scale and pan in which all three show
/// the model whole. The scale may be beyond the limits of zooming.
void startPlanes(ModelDocument& document, std::int32_t width, std::int32_t height,
                 Seen seen = Seen::Model);

} // namespace korvane
