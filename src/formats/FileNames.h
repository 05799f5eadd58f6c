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

/// The folder that a file name leads to; empty where the name has none, as that of a new model.
QString folderOf(const QString& fileName);

/// The name, without its folder, that saving a model under another name starts from: it ends in
/// ".xsi" in place of another extension of models.
QString offeredName(const QString& fileName);

/// Whether a name ends in an extension of models, whatever is done with such a file.
bool isModelName(const QString& fileName);

} // namespace korvane
