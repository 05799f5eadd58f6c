#pragma once

#include "render/drags/PlaneDrag.h"
#include "render/drags/ViewKey.h"

namespace korvane {

/// A run of arrow keys in a 2D view, with a tool that moves or turns the selected frame: each moves
/// the frame by a pixel, or turns it by a degree, counterclockwise to the left and up. All of them
/// count from where the frame was at the beginning, so that nothing adds up and the way back ends
/// there.
class KeyRun {
  public:
    KeyRun(const PlaneMapping& mapping, ViewTool tool, FrameMove start)
        : mapping_(mapping), tool_(tool), move_(std::move(start)) {}

    /// Whether a key goes on with this run: in the same view with the same tool at the same frame.
    [[nodiscard]] bool goesOn(const PlaneMapping& mapping, ViewTool tool,
                              const FramePath& frame) const {
        return mapping_ == mapping && tool_ == tool && move_.frame == frame;
    }
    /// False for a key that would lead beyond all numbers, which does nothing.
    bool press(ViewKey arrow);

    [[nodiscard]] const FrameMove& move() const { return move_; }
    /// Whether the frame is elsewhere than at the beginning.
    [[nodiscard]] bool moves() const;
    [[nodiscard]] const DragProgress& progress() const { return progress_; }

  private:
    PlaneMapping mapping_;
    ViewTool tool_;
    FrameMove move_;
    KeyWay way_;
    DragProgress progress_;
};

/// What an arrow key does in a 2D view with the other tools: as a drag by a pixel with that which
/// moves the camera centre, else it pans by some pixels. False if nothing moved.
StaleViews stepView(const PlaneMapping& mapping, ViewKey arrow, ModelDocument& document);

} // namespace korvane
