#pragma once

#include <QMessageBox>

namespace korvane {

/// Shows a modal message box over a window and returns the answer. The text is plain text. The box
/// is wide enough for its title, which often is the actual message.
QMessageBox::StandardButton showMessageBox(QWidget* window, const QString& objectName,
                                           QMessageBox::Icon icon, const QString& title,
                                           const QString& text,
                                           QMessageBox::StandardButtons buttons = QMessageBox::Ok);

/// Asks whether to replace an existing file, for a name that no file dialog has asked about.
bool replacingAgreed(QWidget* window, const QString& fileName);

} // namespace korvane
