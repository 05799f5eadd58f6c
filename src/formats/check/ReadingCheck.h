#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/ReadPlaces.h"
#include "formats/text/ReadNotes.h"
#include "model/document/ModelDocument.h"

#include <string_view>

namespace korvane {

/// Reports what a reader left out of the bytes, from its notes and the document that it made.
/// Returns where the parts of the model are.
ReadPlaces checkReading(std::string_view bytes, const ReadNotes& notes,
                        const ModelDocument& document, FindingList& findings);

} // namespace korvane
