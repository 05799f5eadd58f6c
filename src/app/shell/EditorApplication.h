#pragma once

#include <QApplication>

#include <memory>

namespace korvane {

/// The application as the editor needs it: its title, nothing kept from one run to the next, and no
/// exception let through to the user.
class EditorApplication : public QApplication {
  public:
    /// Both must outlive the application. The words behind the program's name are cut off: the
    /// toolkit would look for its own options among them, and a file's name must not become one.
    EditorApplication(int& argc, char** argv);

    /// Makes the application, or says in one line on standard error that there is no display and
    /// ends the program with status 1, where the toolkit would abort.
    static std::unique_ptr<EditorApplication> onDisplay(int& argc, char** argv);

    /// Tells the user that a command has ended for want of memory.
    static void tellMemoryFailure();

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace korvane
