#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QMdiSubWindow;

namespace korvane {

/// Keeps the keyboard where it was in a document window: coming back to the window gives the focus
/// to the control that had it. The toolkit by itself moves it on by one control at every switch.
class WindowFocus : public QObject {
  public:
    /// `first` has the focus before the user has chosen another control. The window owns this
    /// object.
    WindowFocus(QMdiSubWindow& window, QWidget& first);

  private:
    void focusChanged(const QWidget* old, QWidget* now);
    void restore();

    QMdiSubWindow& window_;
    QWidget& first_;
    QPointer<QWidget> focused_; ///< the control of the window that the user left
    bool restored_ = false;     ///< until then it is the toolkit that moves the focus, not the user
};

} // namespace korvane
