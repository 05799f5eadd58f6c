#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace korvane::killing {

/// Nanoseconds since one moment that all programs know.
std::int64_t now();

/// What an editor notes: the number of an edit, or -1 before a save, and when.
struct Note {
    std::int64_t number = 0;
    std::int64_t time = 0;
};
std::vector<Note> readNotes(const QString& file);

/// After so many edits an editor that saves does.
inline constexpr std::int64_t editsToASave = 5;

/// What an editor is to do until it is killed.
struct Task {
    std::uint32_t seed = 1;
    QString model;
    QString notes; ///< the file to note in
    bool saves = false;
};
/// Edits in real windows; returns only when it fails.
int edit(const Task& task);

} // namespace korvane::killing
