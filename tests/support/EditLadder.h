#pragma once

#include "edit/history/EditHistory.h"

#include <functional>
#include <string>
#include <vector>

namespace korvane::test {

/// The part of a document that the history must restore: all of the model but the selection, and
/// the bytes that saving writes.
struct EditSnapshot {
    explicit EditSnapshot(const ModelDocument& document);

    FrameRecord root;
    std::vector<MaterialRecord> materials;
    std::string bytes;

    bool operator==(const EditSnapshot&) const = default;
};

/// Returns true if every frame's path leads to it.
bool pathsAreRight(const ModelDocument& document);

/// The steps through a document's history.
struct Rails {
    std::function<void()> undo;
    std::function<void()> redo;
    std::function<bool()> canUndo;
    std::function<bool()> canRedo;
};

/// Climbs down and up the history twice from its end and compares each rung with its snapshot:
/// snapshots[i] was taken before edit i, the last one after the last edit. Returns the first
/// difference; empty if there is none.
std::string climb(const ModelDocument& document, const Rails& rails,
                  const std::vector<EditSnapshot>& snapshots);
std::string climb(ModelDocument& document, EditHistory& history,
                  const std::vector<EditSnapshot>& snapshots);

} // namespace korvane::test
