#pragma once

#include "model/ModelDocument.h"
#include "render/ViewGeometry.h"

namespace korvane {

// Both move the document's views to where a just-opened model is seen whole and centred, for an
// empty model to a sensible place. They bring the drawing caches up to date.

/// Moves the camera to where the model is seen whole whichever way it is turned, as far as the near
/// plane and the depth of the view allow.
void startCamera(ModelDocument& document, const ViewGeometry& geometry);

/// Gives the 2D views, each of a size in device pixels, one scale and pan in which all three show
/// the model whole, as far as the limits of the scale allow.
void startPlanes(ModelDocument& document, std::int32_t width, std::int32_t height);

} // namespace korvane
