#pragma once

#include <QIcon>
#include <QString>

namespace korvane {

/// The icon of that name in the program's resources. It is drawn in the colours of the palette, so
/// that it can be told from a light background as well as from a dark one, at any size.
QIcon paletteIcon(const QString& name);

} // namespace korvane
