#include "edit/materials/TextureFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace korvane {

QStringList driveRoots() {
    QStringList drives;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        // single files can be mounted too
        if (volume.isValid() && volume.isReady() && QFileInfo(root).isDir() &&
            !drives.contains(root)) {
            drives.push_back(root);
        }
    }
    if (drives.isEmpty()) {
        drives.push_back(QDir::rootPath());
    }
    std::sort(drives.begin(), drives.end());
    return drives;
}

QString driveOf(const QString& folder) {
    return QStorageInfo(folder).rootPath();
}

TypedName typedName(const QString& typed, const QString& folder) {
    using Kind = TypedName::Kind;
    const QString text = typed.trimmed();
    if (text.isEmpty()) {
        return {};
    }
    if (text.contains(u'*') || text.contains(u'?')) {
        return {Kind::Mask, text};
    }
    const QFileInfo named(QDir(folder), text);
    if (named.isDir()) {
        return {Kind::Folder, named.absoluteFilePath()};
    }
    return named.isFile() ? TypedName{Kind::File, QDir::cleanPath(named.absoluteFilePath())}
                          : TypedName{Kind::Missing, text};
}

} // namespace korvane
