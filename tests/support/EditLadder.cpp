#include "support/EditLadder.h"

#include "model/records/FrameWalk.h"
#include "support/TextModel.h"

namespace korvane::test {

EditSnapshot::EditSnapshot(const ModelDocument& document)
    : root(document.Root), materials(document.Materials), bytes(writeText(document)) {
    for (FrameWalk walk(root); !walk.done(); walk.next()) {
        walk.frame().SelectState = SelectState::Other;
        walk.frame().TreeNode = -1;
    }
}

bool pathsAreRight(const ModelDocument& document) {
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        const FrameRecord& frame = walk.frame();
        if (frame.Path != FramePath(walk.childNumbers()) ||
            frame.PathDepth != static_cast<std::int32_t>(walk.depth())) {
            return false;
        }
    }
    return true;
}

std::string climb(ModelDocument& document, EditHistory& history,
                  const std::vector<EditSnapshot>& snapshots) {
    return climb(document,
                 {[&] { history.undo(document); }, [&] { history.redo(document); },
                  [&] { return history.canUndo(); }, [&] { return history.canRedo(); }},
                 snapshots);
}

std::string climb(const ModelDocument& document, const Rails& rails,
                  const std::vector<EditSnapshot>& snapshots) {
    const auto compare = [&](std::size_t rung, const char* way) {
        if (EditSnapshot(document) == snapshots[rung] && pathsAreRight(document)) {
            return std::string();
        }
        return std::string(way) + " to rung " + std::to_string(rung);
    };
    for (int time = 0; time < 2; ++time) {
        for (std::size_t rung = snapshots.size() - 1; rung > 0; --rung) {
            rails.undo();
            if (std::string difference = compare(rung - 1, "down"); !difference.empty()) {
                return difference;
            }
        }
        if (rails.canUndo()) {
            return "more to undo at the foot";
        }
        for (std::size_t rung = 1; rung < snapshots.size(); ++rung) {
            rails.redo();
            if (std::string difference = compare(rung, "up"); !difference.empty()) {
                return difference;
            }
        }
        if (rails.canRedo()) {
            return "more to redo at the top";
        }
    }
    return {};
}

} // namespace korvane::test
