#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <map>
#include <optional>

class QFile;

namespace korvane {

/// Permissions, ownership and attributes of a file.
struct FileRights {
    std::uint32_t mode = 0;
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    /// Access lists, which the system keeps as attributes, and the user's own attributes.
    std::map<QByteArray, QByteArray> attributes;

    bool operator==(const FileRights&) const = default;
};

/// Returns the rights of a file; nullopt if they cannot be read.
std::optional<FileRights> rightsOf(const QString& fileName);

/// Gives an open file the rights of another. Returns false if the system refuses some of them; the
/// file may then have the others.
bool giveRights(QFile& file, const FileRights& wanted);

} // namespace korvane
