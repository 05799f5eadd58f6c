#include "render/scene/DrawList.h"

#include "model/records/FrameWalk.h"

namespace korvane {

void DrawList::rebuild(FrameRecord& root) {
    items_.clear();
    worlds_.clear();
    for (FrameWalk walk(root); !walk.done(); walk.next()) {
        FrameRecord& frame = walk.frame();
        worlds_.resize(walk.depth());
        worlds_.push_back(worlds_.empty() ? frame.Matrix
                                          : MatrixMatrix(frame.Matrix, worlds_.back()));
        if (isShown(frame)) {
            items_.push_back({&frame, worlds_.back()});
        }
    }
}

} // namespace korvane
