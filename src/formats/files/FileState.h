#pragma once

#include <QString>

#include <cstdint>
#include <optional>

class QFile;

namespace korvane {

/// What a system tells of a file that changes when somebody writes it.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0; ///< of the file on its device
    std::int64_t size = 0;
    std::int64_t time = 0; ///< nanoseconds

    bool operator==(const FileStamp&) const = default;
};

/// The stamp of a file; nothing where there is none, or what is there is no file.
std::optional<FileStamp> stampOf(const QString& fileName);
/// The same of an open file, whatever its name leads to by now.
std::optional<FileStamp> stampOf(const QFile& file);

/// A file as it was when it was read or written.
struct FileState {
    FileStamp stamp;
    std::optional<std::uint64_t> contents; ///< the checksum of its bytes, if they are known
};

} // namespace korvane
