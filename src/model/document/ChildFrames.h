#pragma once

#include "model/records/FrameRecord.h"

#include <cstddef>
#include <vector>

namespace korvane {

// Both also update the paths of all frames that shift, and change nothing if memory runs out.
// Positions count from 0.

/// Inserts a frame among the children of another, past the end as the last. Its frames become part
/// of the selection if the new parent is, and have no nodes in the structure tree.
void insertChild(FrameRecord& parent, std::size_t position, FrameRecord& child);

/// Moves the child at a position to the end of a list; does nothing if there is none.
void takeChild(FrameRecord& parent, std::size_t position, std::vector<FrameRecord>& taken);

} // namespace korvane
