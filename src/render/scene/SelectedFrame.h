#pragma once

#include "model/records/FrameRecord.h"

namespace korvane {

/// A frame found by walking a tree. The pointer is valid until the next structural edit.
struct SelectedFrame {
    FrameRecord* frame;
    FramePath path;
    Matrix4 world; ///< its world matrix
};

/// The first frame of the walk that is marked as selected; the last frame of all if none is.
SelectedFrame findSelectedFrame(FrameRecord& root);

} // namespace korvane
