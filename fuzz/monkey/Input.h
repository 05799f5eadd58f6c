#pragma once

#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace korvane::monkey {

/// The mouse. Its events are routed as those of the window system: windows blocked by a dialog get
/// none, popups come first, a held button keeps its window.
class Mouse {
  public:
    /// At a place of the widget; the event goes to what is shown there.
    void press(const QWidget& at, QPoint place, Qt::MouseButton button,
               Qt::KeyboardModifiers keys = Qt::NoModifier);
    void move(const QWidget& at, QPoint place, Qt::KeyboardModifiers keys = Qt::NoModifier);
    void release(const QWidget& at, QPoint place, Qt::MouseButton button,
                 Qt::KeyboardModifiers keys = Qt::NoModifier);
    void click(const QWidget& at, QPoint place, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier);
    void doubleClick(const QWidget& at, QPoint place);
    static void wheel(const QWidget& at, QPoint place, int notches, Qt::KeyboardModifiers keys);
    /// Releases all buttons.
    void letGo(const QWidget& at);

    /// Returns true if a button is down.
    [[nodiscard]] bool holds() const { return held_ != Qt::NoButton; }

  private:
    void send(const QWidget& at, QPoint place, QEvent::Type type, Qt::MouseButton button,
              Qt::KeyboardModifiers keys);

    QPointer<QWindow> holder_; ///< the window that got the press
    Qt::MouseButtons held_;
    int time_ = 1000; ///< spaced so that only a double click counts as one
};

/// Returns true while input is being delivered to a widget: a menu may be open that waits for more.
bool inputWaits();

/// Presses and releases a key in the widget's window.
void typeKey(const QWidget& in, Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier);
void typeText(const QWidget& in, const QString& text);
/// Gives the window manager time to activate the window, which it may refuse.
void waitForActive(QWidget& window);
/// Closes the window by its frame, as a user does.
void closeByFrame(const QWidget& window);

} // namespace korvane::monkey
