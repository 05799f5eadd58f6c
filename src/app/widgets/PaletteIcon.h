#pragma once

#include <QIcon>
#include <QString>

namespace korvane {

/// Returns the icon of this name in the program's resources; null if there is none. It is drawn in
/// the palette's colours at any size, so it is visible on light and on dark backgrounds.
QIcon paletteIcon(const QString& name);

} // namespace korvane
