#pragma once

#include <QString>
#include <QStringList>

namespace korvane {

/// The words of a command line behind the name of the program.
QStringList commandLineWords(int argc, char** argv);

/// The extension of a file name with its dot, in upper case; empty if it has none.
QString upperExtension(const QString& fileName);

/// Whether the name ends in an extension of text models: ".XSI" or ".X" in any case.
bool isTextModelName(const QString& fileName);

} // namespace korvane
