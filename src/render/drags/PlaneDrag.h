#pragma once

#include "model/document/ModelDocument.h"
#include "render/drags/DragInput.h"
#include "render/drags/ViewPlane.h"

#include <optional>

namespace korvane {

/// What a drag did to a frame: its matrix from before and now.
struct FrameMove {
    FramePath frame;
    Matrix4 before;
    Matrix4 after;
};

/// How far a running drag has got, to be told to the user.
struct DragProgress {
    ViewTool tool = ViewTool::Zoom;
    Vec3 moved;          ///< what was moved, in world space
    float turned = 0.0F; ///< radians, counterclockwise on the screen
};

/// Which pictures no longer show the document.
struct StaleViews {
    bool planes = false; ///< those of the 2D views
    bool space = false;  ///< that of the 3D view

    StaleViews& operator|=(const StaleViews& other) {
        planes = planes || other.planes;
        space = space || other.space;
        return *this;
    }
};

/// How a drag ended.
struct DragEnd {
    StaleViews stale;
    std::optional<FrameMove> move; ///< for the history, if a frame has another matrix now
};

/// The mouse in the 2D views, from the button that goes down first until one is released. It does
/// what the document's tool of that moment is for, live in the document. Cancelled, it leaves
/// everything as it was. One drag runs at a time, in one plane.
class PlaneDrag {
  public:
    /// A button went down. The zoom tool does its work at once: the left button doubles the scale,
    /// the right one halves it. All others wait for the left button to move. A drag that was left
    /// over in another plane is cancelled.
    StaleViews begin(const DragInput& input, PlaneMapping mapping, ModelDocument& document);
    /// The mouse moved; nothing if that was in another plane.
    StaleViews update(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    /// A button was released: as update(), and the drag is over. One that was left over in another
    /// plane is cancelled.
    DragEnd end(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    /// Puts everything back to where it was at the beginning.
    StaleViews cancel(ModelDocument& document);

    [[nodiscard]] bool active() const { return left_ || right_; }
    /// Whether a frame is elsewhere than it was when the drag began.
    [[nodiscard]] bool moves(const ModelDocument& document) const;
    [[nodiscard]] bool activeIn(ViewPlane plane) const { return active() && plane_ == plane; }
    /// How far the drag has got; nothing unless one runs that does anything by moving.
    [[nodiscard]] std::optional<DragProgress> progress() const;

  private:
    /// A way from the pointer to the frame's origin, one unit long.
    struct Direction {
        double u = 0.0;
        double v = 0.0;
    };

    void pressLeft(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    StaleViews moveFrame(ModelDocument& document);
    StaleViews rotateFrame(const DragInput& input, const PlaneMapping& mapping,
                           ModelDocument& document);
    /// Whether that was a change.
    bool setFrameMatrix(ModelDocument& document, const Matrix4& matrix) const;
    [[nodiscard]] std::optional<Direction> directionFrom(const DragInput& input,
                                                         const PlaneMapping& mapping) const;

    ViewPlane plane_ = ViewPlane::XY;
    bool left_ = false;
    bool right_ = false;
    DragProgress progress_;

    // for cancel(): from before the first button went down
    float idleScale_ = 0.0F;
    Vec3 idlePan_;
    Vec3 idleCentre_;

    // from when the left button went down
    DragInput start_;
    Vec3 startPan_;
    Vec3 startCentre_;
    FramePath frame_;
    Matrix4 frameMatrix_;
    PlanePoint frameOrigin_;                  ///< in the plane
    std::optional<Direction> startDirection_; ///< none while the pointer is on the origin
};

/// The wheel turned by so many notches, forward being positive, at a place in a 2D view: zooms by a
/// factor a notch, keeping what is under the pointer there. False if the scale stays.
bool zoomPlanes(const DragInput& place, float notches, PlaneMapping mapping,
                ModelDocument& document);

} // namespace korvane
