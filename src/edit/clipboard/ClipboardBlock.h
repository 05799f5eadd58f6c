#pragma once

#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace korvane {

/// The content of a clipboard block, by the number in its first four bytes.
enum class ClipboardContent : std::uint32_t { Frame = 1, Materials = 8 };

/// A copied frame with the materials that it uses. The entries of its `MaterialSlotList`s index
/// `materials`, or are -1 if a slot leads to no material. What depends on the frame's place (path,
/// selection, node) is unset.
struct CopiedFrame {
    FrameRecord frame;
    std::vector<MaterialRecord> materials;
};

/// Materials in the order of copying.
using CopiedMaterials = std::vector<MaterialRecord>;

/// The decoded content of a block.
using ClipboardItem = std::variant<CopiedFrame, CopiedMaterials>;

} // namespace korvane
