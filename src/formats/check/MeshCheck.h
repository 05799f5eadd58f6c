#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/ReadPlaces.h"
#include "model/document/ModelDocument.h"

namespace korvane {

/// Reports faults in a model's meshes and materials that cost no data.
void checkMeshes(const ModelDocument& document, const ReadPlaces& places, FindingList& findings);

} // namespace korvane
