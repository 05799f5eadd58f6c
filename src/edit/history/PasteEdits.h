#pragma once

#include "edit/history/EditHistory.h"
#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <vector>

namespace korvane {

// These paste into the model as one entry of the history. They ignore a frame that does not exist.

/// Appends materials to the table.
void pasteMaterials(EditHistory& history, ModelDocument& document,
                    std::vector<MaterialRecord> materials);
/// The same, and a slot in the frame's mesh for each.
void pasteMeshMaterials(EditHistory& history, ModelDocument& document, const FramePath& frame,
                        std::vector<MaterialRecord> materials);
/// Adds a frame as the last child and appends materials, which its slots refer to, to the table.
/// Does nothing if frames would nest too deep.
void pasteFrame(EditHistory& history, ModelDocument& document, const FramePath& parent,
                FrameRecord frame, std::vector<MaterialRecord> materials);

} // namespace korvane
