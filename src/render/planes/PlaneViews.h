#pragma once

#include "render/drags/PlaneDrag.h"
#include "render/planes/PlaneView.h"

#include <QString>

#include <array>
#include <optional>

namespace korvane {

/// The three 2D views of a document with the mouse in each of them. They share what the document
/// holds for its views; what a mouse event changes is marked there for whoever redraws.
class PlaneViews {
  public:
    [[nodiscard]] PlaneView& view(ViewPlane plane) { return of(plane).view; }
    void setColors(const PlaneColors& colors);

    void mouseDown(ViewPlane plane, const DragInput& input, ModelDocument& document);
    void mouseMove(ViewPlane plane, const DragInput& input, ModelDocument& document);
    /// Tells what a finished drag did to a frame, for the history. A drag that was left over in
    /// another view is cancelled.
    std::optional<FrameMove> mouseUp(ViewPlane plane, const DragInput& input,
                                     ModelDocument& document);
    /// The wheel turned by so many notches, forward being positive: zooms by a factor a notch,
    /// keeping what is under the pointer there. Nothing while a drag runs.
    void wheel(ViewPlane plane, const DragInput& input, float notches, ModelDocument& document);
    /// Puts back what a running drag has changed. False if none runs.
    bool cancelDrag(ModelDocument& document);
    [[nodiscard]] bool dragging() const;

    /// What the pointer is at, in coordinates of the model, and what the drag there has done.
    [[nodiscard]] QString statusText(ViewPlane plane, const DragInput& input,
                                     const ModelDocument& document) const;

  private:
    struct Controller {
        PlaneView view;
        PlaneDrag drag{};
    };

    [[nodiscard]] Controller& of(ViewPlane plane) {
        return controllers_[static_cast<std::size_t>(plane)];
    }
    [[nodiscard]] const Controller& of(ViewPlane plane) const {
        return controllers_[static_cast<std::size_t>(plane)];
    }
    void cancelOthers(ViewPlane plane, ModelDocument& document);

    std::array<Controller, planeCount> controllers_ = {Controller{PlaneView(ViewPlane::XY)},
                                                       Controller{PlaneView(ViewPlane::XZ)},
                                                       Controller{PlaneView(ViewPlane::ZY)}};
};

} // namespace korvane
