#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class QMdiSubWindow;

namespace korvane {

/// Keeps the keyboard where the user left it in a document window: coming back to the window,
/// tiling or maximising it gives the focus to that control again. The toolkit by itself moves it on
/// by one control each time that it hides the window for a moment.
class WindowFocus : public QObject {
  public:
    /// `first` has the focus before the user has chosen another control. The window owns this
    /// object.
    WindowFocus(QMdiSubWindow& window, QWidget& first);

    /// Gives the focus to a control of the window, as if the user had.
    void give(QWidget& control);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void note();
    void restore();

    QMdiSubWindow& window_;
    QPointer<QWidget> first_;
    QPointer<QWidget> chosen_;
    // What the toolkit or the control does with an event comes first.
    QTimer noteSoon_;
    QTimer restoreSoon_;
};

} // namespace korvane
