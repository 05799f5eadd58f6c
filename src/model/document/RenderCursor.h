#pragma once

#include "model/records/FrameRecord.h"
#include "render/math/VectorMath.h"

#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

/// A position in the pre-order walk of a frame tree, kept as numbers only, so that it stays safe
/// across edits. A walk is ResetRenderList() and then IncRenderList() until it returns false; the
/// root itself is visited before the first call. It is kept for callers outside the program, which
/// itself visits trees with FrameWalk.
struct RenderCursor {
    std::int32_t CursorDepth = 0;
    /// Slot d holds how many children of the frame at depth d have been entered; the slots 0 to
    /// CursorDepth mean something.
    std::vector<std::int32_t> CursorPath = {0};

    /// Puts the cursor on the root with no child visited.
    void ResetRenderList();
    /// Moves to the next frame in pre-order; false when the whole tree has been visited.
    bool IncRenderList(const FrameRecord& root);

    /// The frame at the cursor, or null when the tree has changed and it is no longer there.
    [[nodiscard]] FrameRecord* GetFramePtr(FrameRecord& root) const;
    /// The parent of the frame at the cursor (of the root: the root), or null as above.
    [[nodiscard]] FrameRecord* GetParentPtr(FrameRecord& root) const;
    /// The world matrix of the frame at the cursor: its own matrix acts first, the root's last.
    [[nodiscard]] Matrix4 GetFrameMatrix(const FrameRecord& root) const;

    /// The child numbers that lead to the frame at the cursor.
    [[nodiscard]] std::span<const std::int32_t> childNumbers() const;

    bool operator==(const RenderCursor&) const = default;
};

} // namespace korvane
