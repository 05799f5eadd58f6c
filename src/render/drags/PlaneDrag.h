#pragma once

#include "model/document/ModelDocument.h"
#include "render/drags/DragInput.h"
#include "render/drags/ViewPlane.h"

#include <optional>

namespace korvane {

/// A change of a frame's matrix.
struct FrameMove {
    FramePath frame;
    Matrix4 before;
    Matrix4 after;
};

/// The progress of a running drag, for the status bar.
struct DragProgress {
    ViewTool tool = ViewTool::Zoom;
    Vec3 moved;          ///< the translation so far, in world space
    float turned = 0.0F; ///< radians, counterclockwise on the screen
};

/// Which views are out of date.
struct StaleViews {
    bool planes = false; ///< the 2D views
    bool space = false;  ///< the 3D view

    StaleViews& operator|=(const StaleViews& other) {
        planes = planes || other.planes;
        space = space || other.space;
        return *this;
    }
};

/// How a drag ended.
struct DragEnd {
    StaleViews stale;
    std::optional<FrameMove> move; ///< to be recorded, if a frame's matrix changed
};

/// Dragging in the 2D views, from the first button down to the first one released. The document's
/// tool at the press decides what the drag does, and each move changes the document at once.
/// cancel() restores everything. One drag runs at a time, in one plane.
class PlaneDrag {
  public:
    /// A button went down. The zoom tool acts at once: the left button doubles the scale, the right
    /// one halves it. All others wait for the left button to move. Cancels a drag whose release
    /// never arrived.
    StaleViews begin(const DragInput& input, PlaneMapping mapping, ModelDocument& document);
    /// The mouse moved. Ignored in another plane than the drag's.
    StaleViews update(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    /// A button was released: does what update() does and ends the drag. Cancels a drag in another
    /// plane, whose release never arrived.
    DragEnd end(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    /// Restores everything from the beginning.
    StaleViews cancel(ModelDocument& document);

    [[nodiscard]] bool active() const { return left_ || right_; }
    /// Whether the drag has changed a frame's matrix.
    [[nodiscard]] bool moves(const ModelDocument& document) const;
    [[nodiscard]] bool activeIn(ViewPlane plane) const { return active() && plane_ == plane; }
    /// How far the drag has got; nothing unless one runs that reacts to moves.
    [[nodiscard]] std::optional<DragProgress> progress() const;

  private:
    /// The unit vector from the pointer to the frame's origin, in the plane.
    struct Direction {
        double u = 0.0;
        double v = 0.0;
    };

    void pressLeft(const DragInput& input, const PlaneMapping& mapping, ModelDocument& document);
    StaleViews moveFrame(ModelDocument& document);
    StaleViews rotateFrame(const DragInput& input, const PlaneMapping& mapping,
                           ModelDocument& document);
    /// Returns whether the matrix changed.
    bool setFrameMatrix(ModelDocument& document, const Matrix4& matrix) const;
    [[nodiscard]] std::optional<Direction> directionFrom(const DragInput& input,
                                                         const PlaneMapping& mapping) const;

    ViewPlane plane_ = ViewPlane::XY;
    bool left_ = false;
    bool right_ = false;
    DragProgress progress_;

    // for cancel(): the values before the first button went down
    float idleScale_ = 0.0F;
    Vec3 idlePan_;
    Vec3 idleCentre_;

    // the values when the left button went down
    DragInput start_;
    Vec3 startPan_;
    Vec3 startCentre_;
    FramePath frame_;
    Matrix4 frameMatrix_;
    PlanePoint frameOrigin_;                  ///< in the plane
    std::optional<Direction> startDirection_; ///< none while the pointer is on the origin
};

/// Zooms a 2D view by the wheel, by a constant factor a notch, and keeps the point under the
/// pointer there. Notches forward are positive. Returns false if the scale stays.
bool zoomPlanes(const DragInput& place, float notches, PlaneMapping mapping,
                ModelDocument& document);

} // namespace korvane
