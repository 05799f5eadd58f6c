#pragma once

#include <QString>
#include <QStringList>

namespace korvane {

/// The sorted roots of the mounted volumes that are ready; the root folder if none is found.
QStringList driveRoots();
/// The root of the drive that a folder is on.
QString driveOf(const QString& folder);

/// The meaning of a text typed as a file name.
struct TypedName {
    enum class Kind { Nothing, Mask, Folder, File, Missing };

    Kind kind = Kind::Nothing;
    QString text; ///< the mask, the full path of the folder or file, or the text typed
};

/// Interprets a text typed while a folder is shown, ignoring surrounding blanks.
TypedName typedName(const QString& typed, const QString& folder);

} // namespace korvane
