#pragma once

#include "model/document/ModelDocument.h"
#include "render/drags/ViewPlane.h"
#include "render/scene/ViewState.h"

#include <QString>

namespace korvane {

/// One sentence that says what a 2D view shows, for people who cannot see it: the plane, the scale
/// and where the selected frame is, in coordinates of the model.
QString planeSentence(const ModelDocument& document, const PlaneMapping& mapping);

/// The same for the 3D view: how the model is drawn, the camera distance in units of the model,
/// the camera angles in degrees, and the selected frame; or why nothing shows.
QString spaceSentence(const ModelDocument& document, const ViewState& state);

} // namespace korvane
