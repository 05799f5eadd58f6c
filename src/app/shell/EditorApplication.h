#pragma once

#include <QApplication>

#include <memory>

namespace korvane {

/// The editor's application object: has the program's title, keeps no settings between runs and
/// lets no exception reach the user.
class EditorApplication : public QApplication {
  public:
    /// Both must outlive the application. Reduces `argc` to the program's name: the toolkit would
    /// take file names for its own options.
    EditorApplication(int& argc, char** argv);

    /// Makes the application. Without a display, where the toolkit would abort, prints one line to
    /// standard error and ends the program with status 1.
    static std::unique_ptr<EditorApplication> onDisplay(int& argc, char** argv);

    /// Tells the user that there was not enough memory for a command.
    static void tellMemoryFailure();

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace korvane
