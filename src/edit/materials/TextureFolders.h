#pragma once

#include <QString>
#include <QStringList>

namespace korvane {

/// The roots of what is mounted and ready, in order; the root folder where none tells of itself.
QStringList driveRoots();
/// The root of the drive that a folder is on.
QString driveOf(const QString& folder);

/// What the user means by a text typed for the name of a file.
struct TypedName {
    enum class Kind { Nothing, Mask, Folder, File, Missing };

    Kind kind = Kind::Nothing;
    QString text; ///< the mask, the full path of the folder or file, or what was typed
};

/// Reads what was typed while a folder is shown; blanks around it do not count.
TypedName typedName(const QString& typed, const QString& folder);

} // namespace korvane
