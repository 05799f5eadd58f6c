#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class QMdiSubWindow;

namespace korvane {

/// Keeps the focus on the control that the user chose last in a document window: restores it when
/// the window is activated, tiled or maximised. Otherwise, the toolkit moves it to the next control
/// whenever it briefly hides the window.
class WindowFocus : public QObject {
  public:
    /// `first` has the focus until the user chooses another control. The window owns this object.
    WindowFocus(QMdiSubWindow& window, QWidget& first);

    /// Gives the focus to a control of the window, as if the user had chosen it.
    void give(QWidget& control);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void note();
    void restore();

    QMdiSubWindow& window_;
    QPointer<QWidget> first_;
    QPointer<QWidget> chosen_;
    // These let the toolkit and the control handle an event first.
    QTimer noteSoon_;
    QTimer restoreSoon_;
};

} // namespace korvane
