#pragma once

#include "render/drags/DragInput.h"
#include "render/scene/ViewGeometry.h"
#include "render/scene/ViewState.h"

namespace korvane {

/// The mouse in the 3D view: the left button turns the camera about its centre, the right button
/// moves it nearer and farther, both together do both. Half the view's width turns by 180 degrees.
class OrbitDrag {
  public:
    /// A button went down: what follows counts from here.
    void begin(const DragInput& input, const CameraAngles& angles, float distance);
    /// The mouse moved. False when no drag runs and nothing changed.
    bool update(const DragInput& input, const ViewGeometry& geometry, CameraAngles& angles,
                float& distance) const;
    /// A button was released: as update(), and the drag is over.
    bool end(const DragInput& input, const ViewGeometry& geometry, CameraAngles& angles,
             float& distance);
    /// Puts the camera back where it was at the beginning. False when no drag runs.
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

/// The camera distance after the wheel turned by so many notches, forward being positive: a
/// constant factor a notch.
float wheelDistance(float distance, float notches);

} // namespace korvane
