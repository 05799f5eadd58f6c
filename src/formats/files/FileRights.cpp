#include "formats/files/FileRights.h"

#include <QFile>

#include <utility>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#endif

namespace korvane {

#ifdef Q_OS_LINUX

namespace {

using Attributes = std::map<QByteArray, QByteArray>;

/// Asks for the size, then for that many bytes; nullopt if a call fails or the size has changed.
template <class Call>
std::optional<QByteArray> bytesFrom(Call call) {
    const ssize_t size = call(nullptr, 0);
    if (size < 0) {
        return std::nullopt;
    }
    QByteArray bytes(size, '\0');
    if (size > 0 && call(bytes.data(), static_cast<std::size_t>(size)) != size) {
        return std::nullopt;
    }
    return bytes;
}

// System calls for a file by name, which need no permission to read it, and for an open file.

int status(const char* file, struct stat& found) {
    return ::stat(file, &found);
}
int status(int file, struct stat& found) {
    return ::fstat(file, &found);
}
ssize_t listAttributes(const char* file, char* space, std::size_t size) {
    return ::listxattr(file, space, size);
}
ssize_t listAttributes(int file, char* space, std::size_t size) {
    return ::flistxattr(file, space, size);
}
ssize_t getAttribute(const char* file, const char* name, char* space, std::size_t size) {
    return ::getxattr(file, name, space, size);
}
ssize_t getAttribute(int file, const char* name, char* space, std::size_t size) {
    return ::fgetxattr(file, name, space, size);
}

template <class File>
std::optional<Attributes> attributesOf(File file) {
    const auto names = bytesFrom(
        [file](char* space, std::size_t size) { return listAttributes(file, space, size); });
    if (!names) {
        return errno == ENOTSUP ? std::optional(Attributes()) : std::nullopt;
    }
    Attributes attributes;
    for (const QByteArray& name : names->split('\0')) {
        // the system gives a new file its other attributes
        if (name.startsWith("user.") || name.startsWith("system.")) {
            const auto value = bytesFrom([&](char* space, std::size_t size) {
                return getAttribute(file, name.constData(), space, size);
            });
            if (!value) {
                return std::nullopt;
            }
            attributes.emplace(name, *value);
        }
    }
    return attributes;
}

template <class File>
std::optional<FileRights> rights(File file) {
    constexpr std::uint32_t permissions = 07777;
    struct stat found = {};
    if (status(file, found) != 0) {
        return std::nullopt;
    }
    auto attributes = attributesOf(file);
    if (!attributes) {
        return std::nullopt;
    }
    return FileRights{found.st_mode & permissions, found.st_uid, found.st_gid,
                      std::move(*attributes)};
}

} // namespace

std::optional<FileRights> rightsOf(const QString& fileName) {
    return rights(QFile::encodeName(fileName).constData());
}

bool giveRights(QFile& file, const FileRights& wanted) {
    // by handle, as the name may lead to another file by now
    const int handle = file.handle();
    const auto before = rights(handle);
    if (!before) {
        return false;
    }
    // The mode is last: a new owner or access list changes it, and nobody else may get in early.
    const bool sameOwner = before->owner == wanted.owner && before->group == wanted.group;
    if (!sameOwner && ::fchown(handle, wanted.owner, wanted.group) != 0) {
        return false;
    }
    for (const auto& [name, value] : before->attributes) {
        // files may inherit access lists from their folder
        if (!wanted.attributes.contains(name) && ::fremovexattr(handle, name.constData()) != 0) {
            return false;
        }
    }
    for (const auto& [name, value] : wanted.attributes) {
        if (::fsetxattr(handle, name.constData(), value.constData(),
                        static_cast<std::size_t>(value.size()), 0) != 0) {
            return false;
        }
    }
    return ::fchmod(handle, wanted.mode) == 0 && rights(handle) == wanted;
}

#else

std::optional<FileRights> rightsOf(const QString& fileName) {
    return FileRights{static_cast<std::uint32_t>(QFile::permissions(fileName).toInt()), 0, 0, {}};
}

bool giveRights(QFile& file, const FileRights& wanted) {
    return file.setPermissions(
        QFile::Permissions::fromInt(static_cast<QFile::Permissions::Int>(wanted.mode)));
}

#endif

} // namespace korvane
