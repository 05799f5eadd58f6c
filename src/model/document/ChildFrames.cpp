#include "model/document/ChildFrames.h"

#include "model/records/FrameWalk.h"
#include "model/records/ListRoom.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace korvane {

// so moves within a list that has room cannot fail
static_assert(std::is_nothrow_move_constructible_v<FrameRecord> &&
              std::is_nothrow_move_assignable_v<FrameRecord>);

namespace {

/// New paths of frames, computed in full first so that setting them cannot fail. The frames must
/// not move in between.
class PathChange {
  public:
    /// Plans this path for a frame and the resulting paths for its descendants.
    void add(FrameRecord& top, FramePath path);
    void apply() noexcept;

  private:
    struct NewPath {
        FrameRecord* frame;
        FramePath path;
    };

    std::vector<NewPath> paths_;
};

void PathChange::add(FrameRecord& top, FramePath path) {
    std::size_t next = paths_.size();
    paths_.push_back({&top, std::move(path)});
    for (; next < paths_.size(); ++next) {
        std::int32_t number = 0;
        for (FrameRecord& child : paths_[next].frame->Children) {
            paths_.push_back({&child, paths_[next].path.child(++number)});
        }
    }
}

void PathChange::apply() noexcept {
    for (NewPath& change : paths_) {
        change.frame->PathDepth = static_cast<std::int32_t>(change.path.depth());
        change.frame->Path = std::move(change.path);
    }
}

FramePath pathOfChild(const FrameRecord& parent, std::size_t position) {
    return parent.Path.child(static_cast<std::int32_t>(position) + 1);
}

} // namespace

void insertChild(FrameRecord& parent, std::size_t position, FrameRecord& child) {
    std::vector<FrameRecord>& children = parent.Children;
    position = std::min(position, children.size());
    reserveMore(children, 1);
    PathChange paths;
    paths.add(child, pathOfChild(parent, position));
    for (std::size_t i = position; i < children.size(); ++i) {
        paths.add(children[i], pathOfChild(parent, i + 1));
    }
    const SelectState state =
        parent.SelectState == SelectState::Other ? SelectState::Other : SelectState::Descendant;
    for (FrameWalk walk(child); !walk.done(); walk.next()) {
        walk.frame().SelectState = state;
        walk.frame().TreeNode = -1; // its number is from an older tree
    }
    paths.apply();
    children.insert(placeIn(children, position), std::move(child));
}

void takeChild(FrameRecord& parent, std::size_t position, std::vector<FrameRecord>& taken) {
    std::vector<FrameRecord>& children = parent.Children;
    if (position >= children.size()) {
        return;
    }
    reserveMore(taken, 1);
    PathChange paths;
    for (std::size_t i = position + 1; i < children.size(); ++i) {
        paths.add(children[i], pathOfChild(parent, i - 1));
    }
    paths.apply();
    taken.push_back(std::move(children[position]));
    children.erase(placeIn(children, position));
}

} // namespace korvane
