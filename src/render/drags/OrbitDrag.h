#pragma once

#include "render/drags/DragInput.h"
#include "render/scene/ViewGeometry.h"
#include "render/scene/ViewState.h"

namespace korvane {

/// Dragging in the 3D view: the left button turns the camera about its centre, the right button
/// changes its distance, both together do both. Half the view's width turns by 180 degrees.
class OrbitDrag {
  public:
    /// A button went down; update() measures from here.
    void begin(const DragInput& input, const CameraAngles& angles, float distance);
    /// The mouse moved. Returns false if no drag runs.
    bool update(const DragInput& input, const ViewGeometry& geometry, CameraAngles& angles,
                float& distance) const;
    /// A button was released: does what update() does and ends the drag.
    bool end(const DragInput& input, const ViewGeometry& geometry, CameraAngles& angles,
             float& distance);
    /// Restores the camera from the beginning. Returns false if no drag runs.
    bool cancel(CameraAngles& angles, float& distance);

    [[nodiscard]] bool active() const { return zooming_ || rotating_; }

  private:
    bool zooming_ = false;
    bool rotating_ = false;
    DragInput start_;
    CameraAngles startAngles_;
    float startDistance_ = 0.0F;
    CameraAngles idleAngles_; ///< before the first button of the drag went down
    float idleDistance_ = 0.0F;
};

/// The camera distance after a turn of the wheel, by a constant factor a notch. Notches forward are
/// positive and move the camera nearer.
float wheelDistance(float distance, float notches);

} // namespace korvane
