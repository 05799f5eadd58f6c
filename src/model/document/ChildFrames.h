#pragma once

#include "model/records/FrameRecord.h"

#include <cstddef>
#include <vector>

namespace korvane {

// Children come and go with the paths of all frames that this moves, or nothing happens if memory
// runs out. Positions are from 0; one past the last child means behind it.

/// Puts a frame among the children of another. It takes no part in a selection that its new parent
/// is no part of, and has no node in the structure tree.
void insertChild(FrameRecord& parent, std::size_t position, FrameRecord& child);

/// Takes the child at a position out, to the end of a list; none if there is none.
void takeChild(FrameRecord& parent, std::size_t position, std::vector<FrameRecord>& taken);

} // namespace korvane
