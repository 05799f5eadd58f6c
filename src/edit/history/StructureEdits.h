#pragma once

#include "edit/history/EditHistory.h"
#include "model/records/FrameFlags.h"

#include <string>

namespace korvane {

// Records of frames and of what each has. Each makes its change, as one entry of the history; what
// leads nowhere in the model is left alone.

/// A frame that a drag has moved or turned: its matrix from before and now.
void recordMove(EditHistory& history, ModelDocument& document, const FramePath& frame,
                const Matrix4& before, const Matrix4& after);
void renameFrame(EditHistory& history, ModelDocument& document, const FramePath& frame,
                 std::string name);
/// A new frame as the last child.
void addFrame(EditHistory& history, ModelDocument& document, const FramePath& parent,
              std::string name);
/// The root cannot be deleted.
void deleteFrame(EditHistory& history, ModelDocument& document, const FramePath& frame);
/// The flags from before the dialog, which has written the new ones into the frame.
void recordFrameOptions(EditHistory& history, ModelDocument& document, const FramePath& frame,
                        const FrameFlags& before);

} // namespace korvane
