#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/ReadPlaces.h"
#include "formats/textures/TextureLoader.h"
#include "model/document/ModelDocument.h"

namespace korvane {

/// Reports textures that cannot be shown, or are found only under another spelling.
void checkTextures(const ModelDocument& document, const ReadPlaces& places, TextureLoader& loader,
                   FindingList& findings);

} // namespace korvane
