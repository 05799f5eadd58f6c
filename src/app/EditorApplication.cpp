#include "app/EditorApplication.h"

#include "app/ModalCall.h"
#include "app/PaletteIcon.h"

#include <QMessageBox>
#include <QProcess>
#include <QSettings>

#include <exception>

// The icons' resources are in a library, which the linker would not take them from by itself; the
// macro wants a function outside of any namespace.
static void initIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace korvane {

EditorApplication::EditorApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Korvane II Model Editor"));
    setApplicationVersion(QStringLiteral(KORVANE_VERSION));
    initIcons();
    setWindowIcon(paletteIcon(QStringLiteral("program")));
    // The file and colour dialogs keep their last folders, sizes and colours in a settings file of
    // their own accord; a place where no file can be keeps them from it.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QProcess::nullDevice());
}

bool EditorApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception&) {
        // Only memory that ran out gets here, or a copy that no clipboard block can hold. By now
        // what asked for it is gone and most of it is free again, so that the user can be told and
        // can save.
        QMessageBox box(QMessageBox::Critical, applicationName(),
                        QStringLiteral("There is not enough memory for this command."),
                        QMessageBox::Ok, activeWindow());
        execModal(box);
    }
    return true;
}

} // namespace korvane
