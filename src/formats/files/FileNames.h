#pragma once

#include <QString>
#include <QStringList>

namespace korvane {

/// Returns the words of a command line after the name of the program.
QStringList commandLineWords(int argc, char** argv);

/// Returns the extension of a file name with its dot, in upper case; empty if it has none.
QString upperExtension(const QString& fileName);

/// The kinds of model files.
enum class ModelFileKind { None, Xsi, DirectX, Msh };

/// Returns the kind of model file that a name stands for, by its extension in any case.
ModelFileKind modelFileKind(const QString& fileName);

/// Returns true if files of this kind can be read.
inline bool isTextModel(ModelFileKind kind) {
    return kind == ModelFileKind::Xsi || kind == ModelFileKind::DirectX;
}

/// Returns the folder of a file name with its last "/"; empty if there is none, as in a new model.
QString folderOf(const QString& fileName);

/// Returns the name, without folder, that Save As suggests: it ends in ".xsi" instead of the
/// extension of another model format.
QString offeredName(const QString& fileName);

} // namespace korvane
