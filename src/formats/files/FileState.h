#pragma once

#include <QString>

#include <cstdint>
#include <optional>

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

/// A file as it was when it was read or written.
struct FileState {
    FileStamp stamp;
    std::uint64_t contents = 0; ///< the checksum of its bytes
};

} // namespace korvane
