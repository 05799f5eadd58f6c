#include "edit/recovery/FileLock.h"

#include <QFile>
#include <QLockFile>

#include <utility>

#ifdef Q_OS_UNIX
#include <sys/file.h>
#include <sys/stat.h>
#endif

namespace korvane {

FileLock::FileLock(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
FileLock::FileLock(FileLock&& other) noexcept = default;
FileLock& FileLock::operator=(FileLock&& other) noexcept = default;
FileLock::~FileLock() = default;

#ifdef Q_OS_UNIX

namespace {

/// Whether the open file still has its name: another program may have removed it before we locked
/// it.
bool isStillThere(const QFile& file) {
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file.handle(), &opened) == 0 &&
           ::stat(QFile::encodeName(file.fileName()).constData(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

std::optional<FileLock> FileLock::take(const QString& fileName) {
    // not by process number, which another process may get later
    auto file = std::make_unique<QFile>(fileName);
    if (!file->open(QIODevice::ReadWrite | QIODevice::Unbuffered,
                    QFile::ReadOwner | QFile::WriteOwner) ||
        ::flock(file->handle(), LOCK_EX | LOCK_NB) != 0 || !isStillThere(*file)) {
        return std::nullopt;
    }
    return FileLock(std::move(file));
}

void FileLock::remove() {
    QFile::remove(handle_->fileName());
}

#else

std::optional<FileLock> FileLock::take(const QString& fileName) {
    auto file = std::make_unique<QLockFile>(fileName);
    file->setStaleLockTime(0);
    if (!file->tryLock()) {
        return std::nullopt;
    }
    return FileLock(std::move(file));
}

void FileLock::remove() {} // releasing the lock removes the file

#endif

} // namespace korvane
