#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

namespace korvane {

/// Centres a dialog that is about to be shown on its parent's screen.
inline void centreOnScreen(QDialog& dialog) {
    const QWidget* window = dialog.parentWidget() != nullptr ? dialog.parentWidget() : &dialog;
    const QRect screen = window->screen()->availableGeometry();
    QRect place({}, dialog.sizeHint());
    place.moveCenter(screen.center());
    // Ignores the window frame, whose size is unknown before the first show: with it, the dialog
    // would appear elsewhere the second time.
    dialog.setGeometry(place);
}

/// Makes the scroll area in a dialog of fixed size large enough for its content, or as large as the
/// screen allows, with scroll bars.
inline void fitToScreen(QDialog& dialog, QScrollArea& area) {
    constexpr int frame = 40; // about the height that the desktop adds to a window
    const QWidget* window = dialog.parentWidget() != nullptr ? dialog.parentWidget() : &dialog;
    const QSize wanted = area.widget()->sizeHint();
    area.setFixedSize(wanted);
    const QSize room = window->screen()->availableGeometry().size() - QSize(0, frame) -
                       (dialog.sizeHint() - wanted);
    if (wanted.width() > room.width() || wanted.height() > room.height()) {
        const int bar = area.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &area);
        area.setFixedSize((wanted + QSize(bar, bar)).boundedTo(room).expandedTo({1, 1}));
    }
}

/// Has a file dialog begin in a folder. If there is no such folder, it keeps its default.
inline void startIn(QFileDialog& dialog, const QString& folder) {
    if (QFileInfo(folder).isDir()) {
        dialog.setDirectory(folder);
    }
}

} // namespace korvane
