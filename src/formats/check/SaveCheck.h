#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/ReadPlaces.h"
#include "model/document/ModelDocument.h"

namespace korvane {

/// Tells what of the model a saved file would not give back.
void checkSaving(const ModelDocument& document, const ReadPlaces& places, FindingList& findings);

} // namespace korvane
