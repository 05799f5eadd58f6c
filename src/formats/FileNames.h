#pragma once

#include <QString>

namespace korvane {

/// The extension of a file name with its dot, in upper case; empty if it has none.
QString upperExtension(const QString& fileName);

/// Whether the name ends in an extension of text models: ".XSI" or ".X" in any case.
bool isTextModelName(const QString& fileName);

} // namespace korvane
