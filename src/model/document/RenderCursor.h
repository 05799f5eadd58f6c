#pragma once

#include "model/records/FrameRecord.h"
#include "render/math/VectorMath.h"

#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

/// A position in the pre-order walk of a frame tree, kept as numbers so that it stays safe across
/// edits. To walk, call ResetRenderList(), then IncRenderList() until it returns false; the root is
/// visited before the first call. Kept for callers outside the program, which itself walks trees
/// with FrameWalk.
struct RenderCursor {
    std::int32_t CursorDepth = 0;
    /// Slot d counts the entered children of the frame at depth d; only the slots 0 to CursorDepth
    /// are valid.
    std::vector<std::int32_t> CursorPath = {0};

    /// Puts the cursor on the root with no child visited.
    void ResetRenderList();
    /// Moves to the next frame in pre-order. Returns false after the last one.
    bool IncRenderList(const FrameRecord& root);

    /// The frame at the cursor, or null if the tree has changed and no longer has it.
    [[nodiscard]] FrameRecord* GetFramePtr(FrameRecord& root) const;
    /// The parent of the frame at the cursor (of the root: the root), or null as above.
    [[nodiscard]] FrameRecord* GetParentPtr(FrameRecord& root) const;
    /// The world matrix of the frame at the cursor. Its own matrix acts first, the root's last.
    [[nodiscard]] Matrix4 GetFrameMatrix(const FrameRecord& root) const;

    /// The child numbers from the root to the frame at the cursor.
    [[nodiscard]] std::span<const std::int32_t> childNumbers() const;

    bool operator==(const RenderCursor&) const = default;
};

} // namespace korvane
