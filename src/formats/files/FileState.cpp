#include "formats/files/FileState.h"

#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <QFile>

#include <sys/stat.h>
#else
#include <QDateTime>
#endif

namespace korvane {

#ifdef Q_OS_LINUX

std::optional<FileStamp> stampOf(const QString& fileName) {
    constexpr std::int64_t second = 1'000'000'000;
    struct stat found = {};
    if (::stat(QFile::encodeName(fileName).constData(), &found) != 0 || !S_ISREG(found.st_mode)) {
        return std::nullopt;
    }
    return FileStamp{found.st_dev, found.st_ino, found.st_size,
                     found.st_mtim.tv_sec * second + found.st_mtim.tv_nsec};
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

#endif

} // namespace korvane
