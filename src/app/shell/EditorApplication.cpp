#include "app/shell/EditorApplication.h"

#include "app/widgets/MessageBox.h"
#include "app/widgets/PaletteIcon.h"

#include <QProcess>
#include <QSettings>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

// The linker drops the icons' resources from a static library unless something refers to them. The
// macro only works outside of any namespace.
static void initIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace korvane {

namespace {

int& programNameOnly(int& argc) {
    argc = std::min(argc, 1);
    return argc;
}

/// Handles the toolkit's messages while it looks for a display. The fatal one means that none
/// works. The ones before it report each failed try and do not matter if another succeeds. Debug
/// messages appear only on request, so they are passed on.
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
    // The file and colour dialogs save their last folders, sizes and colours in a settings file. A
    // path that cannot contain a file prevents that.
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
        // Memory ran out, or a copy is too large for a clipboard block. Unwinding has freed most of
        // the memory, so there is enough to tell the user, who can then save.
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
