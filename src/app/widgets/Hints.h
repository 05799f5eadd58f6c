#pragma once

#include <QString>

class QWidget;

namespace korvane {

/// Gives a window's controls their hints, which the main frame's status bar shows for the control
/// under the pointer. A dialog passes its hints to its parent.
void setHints(QWidget& window);

/// Returns the link to the guide's section about a control or, if there is none, about its nearest
/// ancestor that has one; empty if none has.
QString guideSection(const QWidget* control);

} // namespace korvane
