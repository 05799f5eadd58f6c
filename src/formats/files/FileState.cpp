#include "formats/files/FileState.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#else
#include <QDateTime>
#endif

namespace korvane {

#ifdef Q_OS_LINUX

namespace {

std::optional<FileStamp> stampOf(int answer, const struct stat& found) {
    constexpr std::int64_t second = 1'000'000'000;
    if (answer != 0 || !S_ISREG(found.st_mode)) {
        return std::nullopt;
    }
    return FileStamp{found.st_dev, found.st_ino, found.st_size,
                     found.st_mtim.tv_sec * second + found.st_mtim.tv_nsec};
}

} // namespace

std::optional<FileStamp> stampOf(const QString& fileName) {
    struct stat found = {};
    const int answer = ::stat(QFile::encodeName(fileName).constData(), &found);
    return stampOf(answer, found);
}

std::optional<FileStamp> stampOf(const QFile& file) {
    struct stat found = {};
    const int answer = ::fstat(file.handle(), &found);
    return stampOf(answer, found);
}

#else

std::optional<FileStamp> stampOf(const QString& fileName) {
    constexpr std::int64_t millisecond = 1'000'000;
    const QFileInfo info(fileName);
    if (!info.isFile()) {
        return std::nullopt;
    }
    return FileStamp{0, 0, info.size(), info.lastModified().toMSecsSinceEpoch() * millisecond};
}

std::optional<FileStamp> stampOf(const QFile& file) {
    return stampOf(file.fileName());
}

#endif

} // namespace korvane
