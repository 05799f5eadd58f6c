#include "model/document/RenderCursor.h"

#include <cstddef>

namespace korvane {

namespace {

/// Whether the frame at the cursor has a child that was not entered yet.
bool hasUnvisitedChild(const RenderCursor& cursor, const FrameRecord& root) {
    const FrameRecord* frame = frameAt(root, cursor.childNumbers());
    const auto entered = cursor.CursorPath[static_cast<std::size_t>(cursor.CursorDepth)];
    return frame != nullptr && static_cast<std::int64_t>(frame->Children.size()) > entered;
}

} // namespace

void RenderCursor::ResetRenderList() {
    CursorDepth = 0;
    CursorPath.assign(1, 0);
}

bool RenderCursor::IncRenderList(const FrameRecord& root) {
    while (!hasUnvisitedChild(*this, root)) {
        if (CursorDepth == 0) {
            return false;
        }
        --CursorDepth;
        CursorPath.pop_back();
    }
    ++CursorPath.back();
    CursorPath.push_back(0);
    ++CursorDepth;
    return true;
}

FrameRecord* RenderCursor::GetFramePtr(FrameRecord& root) const {
    return frameAt(root, childNumbers());
}

FrameRecord* RenderCursor::GetParentPtr(FrameRecord& root) const {
    const auto numbers = childNumbers();
    return frameAt(root, numbers.first(numbers.empty() ? 0 : numbers.size() - 1));
}

Matrix4 RenderCursor::GetFrameMatrix(const FrameRecord& root) const {
    const FrameRecord* frame = &root;
    Matrix4 world = root.Matrix;
    for (const std::int32_t number : childNumbers()) {
        frame = frameAt(*frame, {&number, 1});
        if (frame == nullptr) {
            break;
        }
        world = MatrixMatrix(frame->Matrix, world);
    }
    return world;
}

std::span<const std::int32_t> RenderCursor::childNumbers() const {
    return std::span(CursorPath).first(static_cast<std::size_t>(CursorDepth));
}

} // namespace korvane
