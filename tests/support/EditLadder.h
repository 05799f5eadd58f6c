#pragma once

#include "edit/history/EditHistory.h"

#include <functional>
#include <string>
#include <vector>

namespace korvane::test {

/// What of a document the history has to bring back: all of the model but the selection, and the
/// bytes that saving gives.
struct EditSnapshot {
    explicit EditSnapshot(const ModelDocument& document);

    FrameRecord root;
    std::vector<MaterialRecord> materials;
    std::string bytes;

    bool operator==(const EditSnapshot&) const = default;
};

/// Whether every frame's path leads to it.
bool pathsAreRight(const ModelDocument& document);

/// How to go through the history of a document.
struct Rails {
    std::function<void()> undo;
    std::function<void()> redo;
    std::function<bool()> canUndo;
    std::function<bool()> canRedo;
};

/// Climbs down and up the history twice from its end, comparing each rung with the snapshot taken
/// there; snapshots[i] is that before edit i, the last one that after the last edit. Gives the
/// first difference, empty if there is none.
std::string climb(const ModelDocument& document, const Rails& rails,
                  const std::vector<EditSnapshot>& snapshots);
std::string climb(ModelDocument& document, EditHistory& history,
                  const std::vector<EditSnapshot>& snapshots);

} // namespace korvane::test
