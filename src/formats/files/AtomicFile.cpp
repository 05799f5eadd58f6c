#include "formats/files/AtomicFile.h"

#include "formats/files/FileRights.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QScopeGuard>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <optional>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace korvane {

namespace {

/// Follows symbolic links from a name; nullopt if they form a cycle.
std::optional<QString> linkTarget(QString name) {
    constexpr int maxLinks = 40;
    for (int links = 0; links < maxLinks; ++links) {
        if (!QFileInfo(name).isSymbolicLink()) {
            return name;
        }
        // ".." in a link is relative to the real folder of the link
        const QFileInfo folder(QFileInfo(name).path());
        name = QDir(folder.canonicalFilePath()).filePath(QFileInfo(name).fileName());
        name = QFileInfo(name).symLinkTarget();
    }
    return std::nullopt;
}

TextSink sinkOf(QIODevice& device) {
    return [&device](std::string_view piece) {
        const auto size = static_cast<qint64>(piece.size());
        return device.write(piece.data(), size) == size;
    };
}

bool writeAll(QFile& file, const QByteArray& bytes) {
    return file.seek(0) && file.write(bytes) == bytes.size() && file.resize(bytes.size());
}

/// Waits until the whole file is on the disk, which may report an error only now. A file system
/// that cannot tell counts as success.
bool reachesDisk([[maybe_unused]] const QFile& file) {
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
#else
    return true;
#endif
}

/// Renames a file over another in one step; false if the system cannot.
bool takePlace(const QString& from, const QString& to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// Replaces an existing file. The new one stays private until it has the rights of the old one.
bool replaceExisting(const QString& name, const std::function<bool(const TextSink&)>& write) {
    if (!QFileInfo(name).isWritable()) {
        return false;
    }
    QTemporaryFile file(name + QStringLiteral(".XXXXXX"));
    // Buffered, the last flush could fail unnoticed, and a truncated file would count as saved.
    const bool made = static_cast<QFile&>(file).open(QIODevice::ReadWrite | QIODevice::Unbuffered);
    const std::optional<FileRights> rights = rightsOf(name);
    if (!made || !rights || !giveRights(file, *rights)) {
        return overwriteFile(name, write);
    }
    if (!write(sinkOf(file)) || !reachesDisk(file)) {
        return false;
    }
    if (takePlace(file.fileName(), name)) {
        file.setAutoRemove(false);
        return true;
    }
    // in a shared folder, files of other users can be written but not replaced
    return overwriteFile(name, write);
}

bool replaceOrThrow(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    const std::optional<QString> name = linkTarget(fileName);
    if (!name || (QFileInfo::exists(*name) && !QFileInfo(*name).isFile())) {
        return false;
    }
    if (QFileInfo::exists(*name)) {
        return replaceExisting(*name, write);
    }
    QSaveFile file(*name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return false;
    }
    if (!write(sinkOf(file))) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

bool replaceOwnOrThrow(const QString& name, const std::function<bool(const TextSink&)>& write) {
    QTemporaryFile file(name + QStringLiteral(".XXXXXX")); // readable by the user only
    if (!static_cast<QFile&>(file).open(QIODevice::ReadWrite | QIODevice::Unbuffered) ||
        !write(sinkOf(file)) || !takePlace(file.fileName(), name)) {
        return false;
    }
    file.setAutoRemove(false);
    return true;
}

MadeFile makeOrThrow(const QString& name, const QString& rightsFrom,
                     const std::function<bool(const TextSink&)>& write) {
    QFile file(name);
    if (!file.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered,
                   QFile::ReadOwner | QFile::WriteOwner)) {
        const QFileInfo info(name);
        return info.exists() || info.isSymbolicLink() ? MadeFile::NameTaken : MadeFile::Failed;
    }
    auto removed = qScopeGuard([&file] { file.remove(); });
    if (const std::optional<FileRights> rights = rightsOf(rightsFrom)) {
        giveRights(file, *rights);
    }
    if (!write(sinkOf(file)) || !reachesDisk(file)) {
        return MadeFile::Failed;
    }
    removed.dismiss();
    return MadeFile::Done;
}

bool overwriteOrThrow(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    // Both texts are in memory before the first byte of the file is touched: from then on only the
    // disk itself can fail.
    QByteArray text;
    const bool complete = write([&text](std::string_view piece) {
        text.append(piece.data(), static_cast<qsizetype>(piece.size()));
        return true;
    });
    QFile file(fileName);
    if (!complete ||
        !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        return false;
    }
    const QByteArray before = file.readAll();
    if (before.size() != file.size()) {
        return false;
    }
    if (writeAll(file, text) && reachesDisk(file)) {
        return true;
    }
    writeAll(file, before); // as this much fitted before
    return false;
}

} // namespace

bool overwriteFile(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    try {
        return overwriteOrThrow(fileName, write);
    } catch (const std::exception&) {
        return false;
    }
}

bool replaceOwnFile(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    try {
        return replaceOwnOrThrow(fileName, write);
    } catch (const std::exception&) {
        return false;
    }
}

MadeFile makeFile(const QString& fileName, const QString& rightsFrom,
                  const std::function<bool(const TextSink&)>& write) {
    try {
        return makeOrThrow(fileName, rightsFrom, write);
    } catch (const std::exception&) {
        return MadeFile::Failed;
    }
}

bool replaceFile(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    try {
        return replaceOrThrow(fileName, write);
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace korvane
