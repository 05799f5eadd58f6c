#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace korvane::killing {

/// Nanoseconds on a clock that all processes share.
std::int64_t now();

/// A note of an editor: the number of an edit, or -1 before a save, and the time.
struct Note {
    std::int64_t number = 0;
    std::int64_t time = 0;
};
std::vector<Note> readNotes(const QString& file);

/// A saving editor saves after this many edits.
inline constexpr std::int64_t editsToASave = 5;

/// The work of an editor until it is killed.
struct Task {
    std::uint32_t seed = 1;
    QString model;
    QString notes; ///< the file for its notes
    bool saves = false;
};
/// Edits in real windows; returns only on failure.
int edit(const Task& task);

} // namespace korvane::killing
