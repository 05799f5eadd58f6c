#pragma once

#include "render/drags/DragInput.h"

#include <QWidget>

#include <functional>

class QMouseEvent;
class QWheelEvent;

namespace korvane {

/// Turns the events of a control into those of a drag, in device pixels of the control. A drag that
/// can get no release any more is cancelled: where a move comes without a button the release went
/// elsewhere, and a control that is hidden, or loses the focus or its window, may get none. So is
/// one at the Escape key.
class DragFilter : public QObject {
  public:
    struct Handlers {
        /// Also of a second press in a row, which comes as a double click.
        std::function<void(const DragInput&)> press;
        std::function<void(const DragInput&)> move;
        std::function<void(const DragInput&)> release;
        std::function<bool()> cancel; ///< ends a running drag without a trace; whether one ran
        /// How far the wheel turned, in notches; forward is positive. Without it the wheel is left
        /// to the control.
        std::function<void(const DragInput&, float)> wheel = {};
        /// The left button pressed with Ctrl held. With it no such press of any button is a drag.
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
