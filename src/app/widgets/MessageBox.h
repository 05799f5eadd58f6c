#pragma once

#include <QMessageBox>

namespace korvane {

/// Shows a message box in the way of a window until it is answered. The text is shown as it stands,
/// and the box is wide enough for the title, which mostly says what is the matter.
QMessageBox::StandardButton showMessageBox(QWidget* window, const QString& objectName,
                                           QMessageBox::Icon icon, const QString& title,
                                           const QString& text,
                                           QMessageBox::StandardButtons buttons = QMessageBox::Ok);

/// Asks whether a file that exists may be replaced; for names that no file dialog has asked about.
bool replacingAgreed(QWidget* window, const QString& fileName);

} // namespace korvane
