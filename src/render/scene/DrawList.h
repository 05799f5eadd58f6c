#pragma once

#include "model/records/FrameRecord.h"

#include <vector>

namespace korvane {

/// Whether the views draw the frame's mesh: its first and third view flags are set.
inline bool isShown(const FrameRecord& frame) {
    return frame.ViewFlags[0] && frame.ViewFlags[2];
}

/// One frame to draw. The pointer is valid until the next structural edit.
struct DrawItem {
    FrameRecord* frame;
    Matrix4 world;
};

/// The frames of a tree that the views show, in pre-order, the root included. A hidden frame's
/// children are still visited.
class DrawList {
  public:
    void rebuild(FrameRecord& root);

    [[nodiscard]] const std::vector<DrawItem>& items() const { return items_; }

  private:
    std::vector<DrawItem> items_;
    std::vector<Matrix4> worlds_; ///< from the root down to the walk's current frame
};

} // namespace korvane
