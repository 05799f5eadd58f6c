#include "render/SelectedFrame.h"

#include "model/FrameWalk.h"
#include "model/RenderCursor.h"

namespace korvane {

FoundFrame findSelectedFrame(FrameRecord& root) {
    FoundFrame found = {&root, {}, {}};
    RenderCursor cursor;
    for (FrameWalk walk(root); !walk.done(); walk.next()) {
        found.frame = &walk.frame();
        cursor.CursorPath.assign(walk.childNumbers().begin(), walk.childNumbers().end());
        if (found.frame->SelectState == SelectState::Selected) {
            break;
        }
    }
    found.path = FramePath(cursor.CursorPath);
    cursor.CursorDepth = static_cast<std::int32_t>(cursor.CursorPath.size());
    found.world = cursor.GetFrameMatrix(root);
    return found;
}

} // namespace korvane
