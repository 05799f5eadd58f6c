#pragma once

#include "render/drags/PlaneDrag.h"
#include "render/drags/ViewKey.h"

namespace korvane {

/// A run of arrow keys in a 2D view with a tool that moves or turns the selected frame. Each key
/// moves the frame by a pixel, or turns it by a degree: counterclockwise for left and up. Each
/// matrix derives from the first one, so errors do not add up and opposite keys cancel exactly.
class KeyRun {
  public:
    KeyRun(const PlaneMapping& mapping, ViewTool tool, FrameMove start)
        : mapping_(mapping), tool_(tool), move_(std::move(start)) {}

    /// Whether a key continues this run: the same view, tool and frame.
    [[nodiscard]] bool continues(const PlaneMapping& mapping, ViewTool tool,
                                 const FramePath& frame) const {
        return mapping_ == mapping && tool_ == tool && move_.frame == frame;
    }
    /// Does nothing and returns false if the result would not be finite.
    bool press(ViewKey arrow);

    [[nodiscard]] const FrameMove& move() const { return move_; }
    /// Whether the frame's matrix differs from the one at the beginning.
    [[nodiscard]] bool moves() const;
    [[nodiscard]] const DragProgress& progress() const { return progress_; }

  private:
    PlaneMapping mapping_;
    ViewTool tool_;
    FrameMove move_;
    KeyWay way_;
    DragProgress progress_;
};

/// Handles an arrow key in a 2D view with any other tool. The tool for the camera centre moves that
/// as a drag by a pixel would; all others pan by 16 pixels. Returns no stale view if nothing moved.
StaleViews stepView(const PlaneMapping& mapping, ViewKey arrow, ModelDocument& document);

} // namespace korvane
