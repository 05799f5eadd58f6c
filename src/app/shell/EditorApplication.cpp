#include "app/shell/EditorApplication.h"

#include "app/widgets/MessageBox.h"
#include "app/widgets/PaletteIcon.h"

#include <QProcess>
#include <QSettings>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

// The icons' resources are in a library, which the linker would not take them from by itself; the
// macro wants a function outside of any namespace.
static void initIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace korvane {

namespace {

int& programNameOnly(int& argc) {
    argc = std::min(argc, 1);
    return argc;
}

/// Takes what the toolkit says while it looks for a display. The fatal message tells that none can
/// be had; those before it tell of each that was tried, which is no news where one works; debug
/// messages come only to those who asked for them.
void tellMissingDisplay(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtDebugMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    }
    if (type != QtFatalMsg) {
        return;
    }
    const bool named = !qEnvironmentVariableIsEmpty("DISPLAY") ||
                       !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
                       !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    std::fputs(named
                   ? "korvane-editor: The display cannot be opened. Check DISPLAY, "
                     "WAYLAND_DISPLAY and QT_QPA_PLATFORM; Wayland needs the package "
                     "qt6-wayland.\n"
                   : "korvane-editor: There is no display: neither DISPLAY nor WAYLAND_DISPLAY is "
                     "set.\n",
               stderr);
    std::_Exit(1);
}

} // namespace

EditorApplication::EditorApplication(int& argc, char** argv)
    : QApplication(programNameOnly(argc), argv) {
    setApplicationName(QStringLiteral("Korvane II Model Editor"));
    setApplicationVersion(QStringLiteral(KORVANE_VERSION));
    initIcons();
    setWindowIcon(paletteIcon(QStringLiteral("program")));
    // The file and colour dialogs keep their last folders, sizes and colours in a settings file of
    // their own accord; a place where no file can be keeps them from it.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QProcess::nullDevice());
}

std::unique_ptr<EditorApplication> EditorApplication::onDisplay(int& argc, char** argv) {
    const QtMessageHandler usual = qInstallMessageHandler(tellMissingDisplay);
    auto application = std::make_unique<EditorApplication>(argc, argv);
    qInstallMessageHandler(usual);
    return application;
}

bool EditorApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception&) {
        // Only memory that ran out gets here, or a copy that no clipboard block can hold. By now
        // what asked for it is gone and most of it is free again, so that the user can be told and
        // can save.
        tellMemoryFailure();
    }
    return true;
}

void EditorApplication::tellMemoryFailure() {
    showMessageBox(activeWindow(), QStringLiteral("MemoryFailure"), QMessageBox::Critical,
                   applicationName(),
                   QStringLiteral("There is not enough memory for this command."));
}

} // namespace korvane
