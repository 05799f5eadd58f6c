#pragma once

#include "model/FrameRecord.h"
#include "model/MaterialRecord.h"

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <span>
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

// docs/clipboard-format.md tells the bytes. Encoding throws std::length_error where the content is
// too much for one block, which holds less than four gigabytes.

/// The frame with its subtree and those materials of the table that their slots lead to. An index
/// that leads nowhere is written as one that says so.
QByteArray encodeFrame(const FrameRecord& frame, std::span<const MaterialRecord> table);

/// The materials in their order.
QByteArray encodeMaterials(std::span<const MaterialRecord* const> materials);

/// The content of a block by its first four bytes alone, which may be all there is; nothing if they
/// name none.
std::optional<ClipboardContent> contentOf(std::span<const std::uint8_t> block);

/// Reads a block, which any program may have written: nothing unless it can be read in full and
/// all its indices lead into what it holds. Takes memory in proportion to the bytes, and time too.
std::optional<ClipboardItem> decodeBlock(std::span<const std::uint8_t> block);

} // namespace korvane
