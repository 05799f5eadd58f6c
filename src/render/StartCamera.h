#pragma once

#include "model/ModelDocument.h"
#include "render/ViewGeometry.h"

namespace korvane {

/// Moves the document's camera to where a just-opened model is seen whole, whichever way it is
/// turned, as far as the near plane and the depth of the view allow; for an empty model to a
/// sensible place. Brings the drawing caches up to date.
void startCamera(ModelDocument& document, const ViewGeometry& geometry);

} // namespace korvane
