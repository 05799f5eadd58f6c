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

/// Lets the event loop run until it has waited, so that posted events and update handlers have run.
void settle();

/// Moves the mouse over a widget with the button held down, which the test library's own moves do
/// not tell; without one it hovers.
void moveHolding(QWidget& widget, QPoint at, Qt::MouseButtons held = Qt::LeftButton);

/// The one child of that class and object name; fails the test and ends it where there is none.
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

    /// The next modal window is given to the handler, which has to close it. Answers are used in
    /// order; a window that comes up without one, or stays open, is a failure and is dismissed.
    void answer(std::function<void(QWidget&)> handler);
    /// The same, for a window of that class.
    template <class Window>
    void answer(const std::function<void(Window&)>& handler) {
        answer([handler](QWidget& shown) { handler(dynamic_cast<Window&>(shown)); });
    }
    /// Answers the next message box, expecting its name, text, title and buttons.
    void answerBox(const QString& name, const QString& text, const QString& title, int buttons,
                   int answer);
    /// The close question for the model.
    void answerCloseQuestion(const QString& fileName, int answer);
    /// Answers the next file dialog with the path, or cancels it if that is empty.
    void answerFileDialog(const QString& name, const QString& path);
    /// From here on the test looks after modal windows itself; only one that stays is dismissed.
    void leaveModalWindows() { poll_.setInterval(10'000); }
    /// Whether every answer has been asked for.
    [[nodiscard]] bool allAnswered() const { return answers_.empty(); }

  private:
    void handleModalWindow();

    QTemporaryDir state_;
    std::deque<std::function<void(QWidget&)>> answers_;
    QTimer poll_;
    QList<QPointer<QWidget>> handled_; ///< those that are open
};

} // namespace korvane::test
