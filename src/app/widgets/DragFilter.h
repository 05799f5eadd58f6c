#pragma once

#include "render/drags/DragInput.h"

#include <QWidget>

#include <functional>

class QMouseEvent;
class QWheelEvent;

namespace korvane {

/// Converts the mouse events of a control to drag input, in device pixels of the control. Cancels a
/// drag on Escape, and when its release may never arrive: a move without a button means that the
/// release went elsewhere; a control that is hidden, loses the focus or is in a deactivated window
/// may not get one.
class DragFilter : public QObject {
  public:
    struct Handlers {
        /// Also called for the second press of a double click.
        std::function<void(const DragInput&)> press;
        std::function<void(const DragInput&)> move;
        std::function<void(const DragInput&)> release;
        std::function<bool()> cancel; ///< cancels a running drag; returns whether there was one
        /// Gets the wheel's rotation in notches, positive if forward. Without this handler the
        /// control gets the wheel events.
        std::function<void(const DragInput&, float)> wheel = {};
        /// Called for Ctrl with the left button. With this handler, no press with Ctrl is a drag.
        std::function<void(const DragInput&)> pick = {};
    };

    /// Destroy it before anything that its handlers use. The control must outlive it.
    DragFilter(QWidget& control, Handlers handlers);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void mouseEvent(const QMouseEvent& event);
    bool wheelEvent(QWheelEvent& event);

    QWidget& control_;
    Handlers handlers_;
};

} // namespace korvane
