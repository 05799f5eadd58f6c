#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <map>
#include <optional>

class QFile;

namespace korvane {

/// Who may do what with a file, and what its owner has noted about it.
struct FileRights {
    std::uint32_t mode = 0;
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    /// Access lists, which the system keeps as attributes, and the user's own attributes.
    std::map<QByteArray, QByteArray> attributes;

    bool operator==(const FileRights&) const = default;
};

/// The rights of a file; nothing where they cannot be told.
std::optional<FileRights> rightsOf(const QString& fileName);

/// Gives an open file the same rights as another has. False where the system does not let it have
/// them all; it may then have some.
bool giveRights(QFile& file, const FileRights& wanted);

} // namespace korvane
