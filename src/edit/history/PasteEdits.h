#pragma once

#include "edit/history/EditHistory.h"
#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <vector>

namespace korvane {

// Records of what comes from the clipboard. Each makes its change, as one entry of the history;
// what leads nowhere in the model is left alone.

/// Materials at the end of the table.
void pasteMaterials(EditHistory& history, ModelDocument& document,
                    std::vector<MaterialRecord> materials);
/// The same, each with a slot of the frame's mesh.
void pasteMeshMaterials(EditHistory& history, ModelDocument& document, const FramePath& frame,
                        std::vector<MaterialRecord> materials);
/// A frame as the last child, with materials at the end of the table that its slots refer to.
/// Nothing happens if frames would nest deeper than they may.
void pasteFrame(EditHistory& history, ModelDocument& document, const FramePath& parent,
                FrameRecord frame, std::vector<MaterialRecord> materials);

} // namespace korvane
