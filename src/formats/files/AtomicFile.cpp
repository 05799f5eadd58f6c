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

/// Where the links that begin at a name lead; nothing when they lead round in a circle.
std::optional<QString> linkTarget(QString name) {
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks; ++links) {
        if (!QFileInfo(name).isSymbolicLink()) {
            return name;
        }
        // ".." in a link counts from where the folder of the link really is
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

/// Waits until the disk has all of the file: it could refuse some only now. Not all file systems
/// can tell.
bool reachesDisk([[maybe_unused]] const QFile& file) {
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
#else
    return true;
#endif
}

/// Puts a file in another's place, in one step; false where the system cannot.
bool takePlace(const QString& from, const QString& to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// For a file that is there. The new one is nobody else's until it has the rights of the old one.
bool replaceExisting(const QString& name, const std::function<bool(const TextSink&)>& write) {
    if (!QFileInfo(name).isWritable()) {
        return false;
    }
    QTemporaryFile file(name + QStringLiteral(".XXXXXX"));
    // Buffered, an error of the last flush would go unnoticed and a cut file would count as saved.
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
    // others' files in a shared folder may be written, but not replaced
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
    QTemporaryFile file(name + QStringLiteral(".XXXXXX")); // which only the user may read
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
    writeAll(file, before); // these bytes had room
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
