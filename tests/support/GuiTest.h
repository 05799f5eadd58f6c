#pragma once

#include "support/SmallModel.h"
#include "support/TestFiles.h"

#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << text.toStdString();
}
QT_END_NAMESPACE

namespace korvane::test {

/// Runs the event loop until posted events and update handlers have run.
void settle();

/// Moves the mouse over a widget with the button held down, or without one to hover. The test
/// library's own moves do not report held buttons.
void moveHolding(QWidget& widget, QPoint at, Qt::MouseButtons held = Qt::LeftButton);

/// Returns the child of that class and object name; throws, which fails the test, if there is none.
template <class T>
T& child(const QObject& in, const char* name) {
    T* found = in.findChild<T*>(QString::fromLatin1(name));
    if (found == nullptr) {
        throw std::runtime_error(std::string("no control named ") + name);
    }
    return *found;
}

/// A test with windows: a folder for its files, and answers to the modal windows that come up.
class GuiTest : public TestFiles {
  protected:
    GuiTest();
    ~GuiTest() override;

    /// Passes the next modal window to the handler, which must close it. Answers are used in order;
    /// a window without an answer, or left open, is a failure and is closed.
    void answer(std::function<void(QWidget&)> handler);
    /// The same for a window of that class.
    template <class Window>
    void answer(const std::function<void(Window&)>& handler) {
        answer([handler](QWidget& shown) { handler(dynamic_cast<Window&>(shown)); });
    }
    /// Answers the next message box, expecting its name, text, title and buttons.
    void answerBox(const QString& name, const QString& text, const QString& title, int buttons,
                   int answer);
    /// Answers the close question for the model.
    void answerCloseQuestion(const QString& fileName, int answer);
    /// Answers the next file dialog with the path, or cancels it if that is empty.
    void answerFileDialog(const QString& name, const QString& path);
    /// From now on the test handles modal windows itself; only one that stays is closed.
    void leaveModalWindows() { poll_.setInterval(10'000); }
    /// Returns true if every answer has been used.
    [[nodiscard]] bool allAnswered() const { return answers_.empty(); }

  private:
    void handleModalWindow();

    QTemporaryDir state_;
    std::deque<std::function<void(QWidget&)>> answers_;
    QTimer poll_;
    QList<QPointer<QWidget>> handled_; ///< those still open
};

} // namespace korvane::test
