#pragma once

#include <QString>
#include <QStringList>

namespace korvane {

/// The words of a command line behind the name of the program.
QStringList commandLineWords(int argc, char** argv);

/// The extension of a file name with its dot, in upper case; empty if it has none.
QString upperExtension(const QString& fileName);

/// The kinds of model files.
enum class ModelFileKind { None, Xsi, DirectX, Msh };

/// What kind of model file a name stands for, by its extension in any case.
ModelFileKind modelFileKind(const QString& fileName);

/// Whether it is a kind that can be read.
inline bool isTextModel(ModelFileKind kind) {
    return kind == ModelFileKind::Xsi || kind == ModelFileKind::DirectX;
}

/// The folder that a file name leads to; empty where the name has none, as that of a new model.
QString folderOf(const QString& fileName);

/// The name, without its folder, that saving a model under another name starts from: it ends in
/// ".xsi" in place of another extension of models.
QString offeredName(const QString& fileName);

} // namespace korvane
