#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/ReadPlaces.h"
#include "model/document/ModelDocument.h"

namespace korvane {

/// Tells what is wrong with the meshes and materials of a model, though nothing of them is lost.
void checkMeshes(const ModelDocument& document, const ReadPlaces& places, FindingList& findings);

} // namespace korvane
