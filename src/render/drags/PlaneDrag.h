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

/// The mouse in a 2D view, from the button that goes down first until one is released. It does what
/// the document's tool of that moment is for, live in the document, and marks there which pictures
/// have to be drawn anew. Cancelled, it leaves everything as it was.
class PlaneDrag {
  public:
    /// A button went down. The zoom tool does its work at once: the left button doubles the scale,
    /// the right one halves it. All others wait for the left button to move.
    void begin(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    /// The mouse moved.
    void update(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    /// A button was released: as update(), and the drag is over. Tells what became of a frame if
    /// its matrix is another one now, for the history.
    std::optional<FrameMove> end(const DragInput& input, const PlaneMapping& mapping,
                                 ModelDocument& document);
    /// Puts everything back to where it was at the beginning.
    void cancel(ModelDocument& document);

    [[nodiscard]] bool active() const { return left_ || right_; }
    /// How far the drag has got; nothing unless one runs that does anything by moving.
    [[nodiscard]] std::optional<DragProgress> progress() const;

  private:
    /// A way from the pointer to the frame's origin, one unit long.
    struct Direction {
        double u = 0.0;
        double v = 0.0;
    };

    void pressLeft(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    void moveFrame(ModelDocument& document);
    void rotateFrame(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    void setFrameMatrix(ModelDocument& document, const Matrix4& matrix) const;
    [[nodiscard]] std::optional<Direction> directionFrom(const DragInput& input,
                                                         const PlaneMapping& mapping) const;

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

} // namespace korvane
