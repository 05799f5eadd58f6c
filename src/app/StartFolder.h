#pragma once

#include <QFileDialog>
#include <QFileInfo>

namespace korvane {

/// Has a file dialog begin in a folder. Where that is none, or none any more, the dialog begins
/// where it would without.
inline void startIn(QFileDialog& dialog, const QString& folder) {
    if (QFileInfo(folder).isDir()) {
        dialog.setDirectory(folder);
    }
}

} // namespace korvane
