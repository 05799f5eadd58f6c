#pragma once

#include <QString>

#include <cstdint>
#include <optional>

class QFile;

namespace korvane {

/// Metadata that changes when a file is written.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0; ///< inode
    std::int64_t size = 0;
    std::int64_t time = 0; ///< of the last change, in nanoseconds

    bool operator==(const FileStamp&) const = default;
};

/// Returns the stamp of a file; nullopt if there is no regular file of that name.
std::optional<FileStamp> stampOf(const QString& fileName);
/// The same for an open file; on Linux, even if its name leads to another one by now.
std::optional<FileStamp> stampOf(const QFile& file);

/// The state of a file when it was last read or written.
struct FileState {
    FileStamp stamp;
    std::optional<std::uint64_t> contents; ///< the checksum of its bytes, if known
};

} // namespace korvane
