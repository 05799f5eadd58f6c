#pragma once

#include <QApplication>

namespace korvane {

/// The application as the editor needs it: its title, nothing kept from one run to the next, and no
/// exception let through to the user.
class EditorApplication : public QApplication {
  public:
    /// Both must outlive the application, which may take its own options out of them.
    EditorApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace korvane
