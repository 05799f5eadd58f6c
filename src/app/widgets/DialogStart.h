#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

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

/// Gives the area in a dialog of a fixed size room for all that it shows, or where the screen has
/// less, for as much as fits, with scroll bars for the rest.
inline void fitToScreen(QDialog& dialog, QScrollArea& area) {
    constexpr int frame = 40; // about what the desktop puts around a window
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

/// Has a file dialog begin in a folder. Where that is none, or none any more, the dialog begins
/// where it would without.
inline void startIn(QFileDialog& dialog, const QString& folder) {
    if (QFileInfo(folder).isDir()) {
        dialog.setDirectory(folder);
    }
}

} // namespace korvane
