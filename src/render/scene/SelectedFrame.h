#pragma once

#include "model/records/FrameRecord.h"

namespace korvane {

/// A frame found by walking a tree. The pointer is valid until the next structural edit.
struct SelectedFrame {
    FrameRecord* frame;
    FramePath path;
    Matrix4 world; ///< its world matrix
};

/// The first selected frame of the walk, or the last frame if none is selected.
SelectedFrame findSelectedFrame(FrameRecord& root);

} // namespace korvane
