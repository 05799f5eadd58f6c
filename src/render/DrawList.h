#pragma once

#include "model/FrameRecord.h"

#include <vector>

namespace korvane {

/// One frame to draw. The pointer is valid until the next structural edit.
struct DrawItem {
    FrameRecord* frame;
    Matrix4 world;
};

/// The frames of a tree that the views show, in pre-order, the root included. A frame is left out
/// when its first or third view flag is clear; its children are still entered.
class DrawList {
  public:
    void rebuild(FrameRecord& root);

    [[nodiscard]] const std::vector<DrawItem>& items() const { return items_; }

  private:
    std::vector<DrawItem> items_;
    std::vector<Matrix4> worlds_; ///< from the root down to the frame the walk stands on
};

} // namespace korvane
