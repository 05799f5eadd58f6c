#pragma once

#include <QString>

class QWidget;

namespace korvane {

/// Gives the controls of a window their hints, by its name and theirs: what the status bar of the
/// main frame says while the pointer is over one. A dialog hands them on to the window below it.
void setHints(QWidget& window);

/// The section of the guide that is about a control or, if none is, about what it lies in: its
/// heading in lower case, with "-" for blanks.
QString guideSection(const QWidget* control);

} // namespace korvane
