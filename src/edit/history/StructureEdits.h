#pragma once

#include "edit/history/EditHistory.h"
#include "model/records/FrameFlags.h"

#include <string>

namespace korvane {

// These change frames as one entry of the history. They ignore a frame that does not exist.

/// Records the old and new matrix of a frame that a drag has moved or turned.
void recordMove(EditHistory& history, ModelDocument& document, const FramePath& frame,
                const Matrix4& before, const Matrix4& after);
void renameFrame(EditHistory& history, ModelDocument& document, const FramePath& frame,
                 std::string name);
/// Adds a frame as the last child.
void addFrame(EditHistory& history, ModelDocument& document, const FramePath& parent,
              std::string name);
/// Ignores the root.
void deleteFrame(EditHistory& history, ModelDocument& document, const FramePath& frame);
/// Records the flags from before the dialog; the frame already has the new ones.
void recordFrameOptions(EditHistory& history, ModelDocument& document, const FramePath& frame,
                        const FrameFlags& before);

} // namespace korvane
