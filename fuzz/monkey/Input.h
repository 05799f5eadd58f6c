#pragma once

#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace korvane::monkey {

/// The mouse. Its events take the way of those of the window system: windows that a dialog blocks
/// get none, popups come first, a held button keeps its window.
class Mouse {
  public:
    /// At a place of the widget; what is shown there gets it.
    void press(const QWidget& at, QPoint place, Qt::MouseButton button,
               Qt::KeyboardModifiers keys = Qt::NoModifier);
    void move(const QWidget& at, QPoint place, Qt::KeyboardModifiers keys = Qt::NoModifier);
    void release(const QWidget& at, QPoint place, Qt::MouseButton button,
                 Qt::KeyboardModifiers keys = Qt::NoModifier);
    void click(const QWidget& at, QPoint place, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier);
    void doubleClick(const QWidget& at, QPoint place);
    static void wheel(const QWidget& at, QPoint place, int notches, Qt::KeyboardModifiers keys);
    /// Lets go of all buttons.
    void letGo(const QWidget& at);

    /// Whether a button is down.
    [[nodiscard]] bool holds() const { return held_ != Qt::NoButton; }

  private:
    void send(const QWidget& at, QPoint place, QEvent::Type type, Qt::MouseButton button,
              Qt::KeyboardModifiers keys);

    QPointer<QWindow> holder_; ///< got the press
    Qt::MouseButtons held_;
    int time_ = 1000; ///< so far apart that only a double click is one
};

/// Whether input is on its way to a widget that has not taken it yet: a menu may be open that waits
/// for more.
bool inputWaits();

/// Presses and releases a key in the widget's window.
void typeKey(const QWidget& in, Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier);
void typeText(const QWidget& in, const QString& text);
/// Gives the window manager time to activate the window, which it may refuse.
void waitForActive(QWidget& window);
/// The user closes the window by its frame.
void closeByFrame(const QWidget& window);

} // namespace korvane::monkey
