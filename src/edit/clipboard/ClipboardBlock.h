#pragma once

#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace korvane {

/// What a clipboard block holds, by the number in its first four bytes.
enum class ClipboardContent : std::uint32_t { Frame = 1, Materials = 8 };

/// A frame on its way from one place to another, with the materials that it uses. The entries of
/// its `MaterialSlotList`s are positions in `materials`, -1 where a slot leads to no material; what
/// depends on where it stands (path, selection, node) is unset.
struct CopiedFrame {
    FrameRecord frame;
    std::vector<MaterialRecord> materials;
};

/// Materials in the order in which they were copied.
using CopiedMaterials = std::vector<MaterialRecord>;

/// What a block holds when it has been read.
using ClipboardItem = std::variant<CopiedFrame, CopiedMaterials>;

} // namespace korvane
