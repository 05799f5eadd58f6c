#pragma once

#include "render/scene/ViewState.h"

#include <QString>

namespace korvane {

struct ModelDocument;

/// Why the 3D view shows no face from any camera position, as a sentence; empty if it can show one.
QString whyNothingShows(const ModelDocument& document, const ViewState& state);

} // namespace korvane
