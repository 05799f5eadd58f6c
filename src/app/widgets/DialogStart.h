#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>

namespace korvane {

/// Puts a dialog that is about to be shown into the middle of its parent's screen.
inline void centreOnScreen(QDialog& dialog) {
    const QWidget* window = dialog.parentWidget() != nullptr ? dialog.parentWidget() : &dialog;
    const QRect screen = window->screen()->availableGeometry();
    QRect place({}, dialog.sizeHint());
    place.moveCenter(screen.center());
    // without the frame, which is known only once it has been shown: counted in, the dialog would
    // come up elsewhere from the second time on
    dialog.setGeometry(place);
}

/// Has a file dialog begin in a folder. Where that is none, or none any more, the dialog begins
/// where it would without.
inline void startIn(QFileDialog& dialog, const QString& folder) {
    if (QFileInfo(folder).isDir()) {
        dialog.setDirectory(folder);
    }
}

} // namespace korvane
