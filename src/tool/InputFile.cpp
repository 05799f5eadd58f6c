#include "tool/InputFile.h"

#include "tool/FileName.h"
#include "tool/Report.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korvane::tool {

QString inputLabel(const QString& file) {
    return isStandardStream(file) ? QStringLiteral("standard input") : file;
}

QString parentFolder(const QString& file) {
    const qsizetype slash = file.lastIndexOf(u'/');
    return slash < 0 ? QStringLiteral(".") : file.left(slash == 0 ? 1 : slash);
}

InputState openInput(QFile& file, const QString& name) {
    const std::string bytes = nameBytes(name);
    struct stat about = {};
    if (stat(bytes.c_str(), &about) != 0) {
        return errno == ENOENT || errno == ENOTDIR ? InputState::Missing : InputState::CannotOpen;
    }
    const int descriptor = S_ISREG(about.st_mode) ? open(bytes.c_str(), O_RDONLY | O_CLOEXEC) : -1;
    const bool opened =
        descriptor >= 0 && file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                                     QFileDevice::AutoCloseHandle);
    return opened ? InputState::Opened : InputState::CannotOpen;
}

std::string readStandardInput() {
    std::string bytes;
    std::array<char, 1U << 16U> piece{};
    for (;;) {
        const ssize_t got = read(STDIN_FILENO, piece.data(), piece.size());
        if (got > 0) {
            bytes.append(piece.data(), static_cast<std::size_t>(got));
        } else if (got == 0) {
            return bytes;
        } else if (errno != EINTR) {
            throw Refusal(inputLabel(QStringLiteral("-")), QStringLiteral("Unable to open file"));
        }
    }
}

FolderAlias::FolderAlias(const QString& folder)
    : real_(folder.isEmpty() ? QStringLiteral(".") : folder), path_(real_) {
    if (!isPlainName(real_)) {
        descriptor_ = open(nameBytes(real_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        path_ = QStringLiteral("/proc/self/fd/%1").arg(descriptor_);
    }
}

FolderAlias::~FolderAlias() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

QString FolderAlias::realName(const QString& file) const {
    const bool within = !isReal() && file.startsWith(path_ + u'/');
    const QString name = within ? real_ + file.mid(path_.size()) : file;
    return name.startsWith(QLatin1String("./")) ? name.mid(2) : name;
}

InputFiles::InputFiles(const QStringList& inputs) {
    for (const QString& input : inputs) {
        if (const auto id = idOf(input, STDIN_FILENO)) {
            ids_.insert(*id);
        }
    }
}

void InputFiles::refuseOverwriting(const QString& out) const {
    const auto id = idOf(out, STDOUT_FILENO);
    if (id && ids_.contains(*id)) {
        throw Refusal(isStandardStream(out) ? QStringLiteral("standard output") : out,
                      QStringLiteral("Would overwrite the input"));
    }
}

void InputFiles::refuseOverwriting(const QString& out, const QString& own) const {
    if (idOf(out, STDOUT_FILENO) != idOf(own, STDIN_FILENO)) {
        refuseOverwriting(out);
    }
}

/// Only regular files count: a terminal may well be both input and output.
std::optional<InputFiles::FileId> InputFiles::idOf(const QString& name, int standardStream) {
    struct stat about = {};
    const int result = isStandardStream(name) ? fstat(standardStream, &about)
                                              : stat(nameBytes(name).c_str(), &about);
    return result == 0 && S_ISREG(about.st_mode) ? std::optional(FileId(about.st_dev, about.st_ino))
                                                 : std::nullopt;
}

} // namespace korvane::tool
