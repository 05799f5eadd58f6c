#pragma once

#include "model/document/ModelDocument.h"
#include "render/scene/ViewGeometry.h"
#include "render/scene/ViewState.h"

namespace korvane {

/// What to show: the whole model, or the selected frame with its descendants.
enum class Seen { Model, Selection };

// Both move the document's views so that a newly opened model of any size is seen whole and
// centred; an empty model gets default values. A selected frame with nothing to show is only
// centred. They bring the drawing caches up to date.

/// Moves the camera, without turning it, to where the model and the selected frame's box are seen
/// whole from any angle. Sets the scale factor of the 3D view: 1 unless the model would reach
/// beyond the depth of the view or is too small for its near plane.
void startCamera(ModelDocument& document, ViewState& state, const ViewGeometry& geometry,
                 Seen seen = Seen::Model);

/// Sets one scale and pan with which all three 2D views, each of that size in device pixels, show
/// the model whole. The scale may lie beyond the limits of zooming.
void startPlanes(ModelDocument& document, std::int32_t width, std::int32_t height,
                 Seen seen = Seen::Model);

} // namespace korvane
