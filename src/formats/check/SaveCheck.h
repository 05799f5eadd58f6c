#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/ReadPlaces.h"
#include "model/document/ModelDocument.h"

namespace korvane {

/// Reports what a saved file would lose of the model.
void checkSaving(const ModelDocument& document, const ReadPlaces& places, FindingList& findings);

} // namespace korvane
