#include "render/scene/SelectedFrame.h"

#include "model/document/RenderCursor.h"
#include "model/records/FrameWalk.h"

namespace korvane {

SelectedFrame findSelectedFrame(FrameRecord& root) {
    SelectedFrame found = {&root, {}, {}};
    RenderCursor cursor;
    cursor.CursorPath.clear();
    FrameWalk walk(root);
    while (!walk.done() && walk.frame().SelectState != SelectState::Selected) {
        walk.next();
    }
    if (!walk.done()) {
        found.frame = &walk.frame();
        cursor.CursorPath.assign(walk.childNumbers().begin(), walk.childNumbers().end());
    }
    while (walk.done() && !found.frame->Children.empty()) { // down to the last frame
        cursor.CursorPath.push_back(static_cast<std::int32_t>(found.frame->Children.size()));
        found.frame = &found.frame->Children.back();
    }
    found.path = FramePath(cursor.CursorPath);
    cursor.CursorDepth = static_cast<std::int32_t>(cursor.CursorPath.size());
    found.world = cursor.GetFrameMatrix(root);
    return found;
}

} // namespace korvane
