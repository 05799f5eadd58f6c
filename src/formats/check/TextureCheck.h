#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/ReadPlaces.h"
#include "formats/textures/TextureLoader.h"
#include "model/document/ModelDocument.h"

namespace korvane {

/// Tells which textures of a model are not seen, or found by luck.
void checkTextures(const ModelDocument& document, const ReadPlaces& places, TextureLoader& loader,
                   FindingList& findings);

} // namespace korvane
