#pragma once

#include "edit/clipboard/ClipboardBlock.h"

#include <cstdint>
#include <optional>
#include <span>

namespace korvane {

/// The content of a block by its first four bytes; the rest may be missing. Nothing if they name
/// none.
std::optional<ClipboardContent> contentOf(std::span<const std::uint8_t> block);

/// Decodes a block, which any program may have written. Returns nothing unless all of it can be
/// read and all indices are valid. Time and memory are proportional to the bytes.
std::optional<ClipboardItem> decodeBlock(std::span<const std::uint8_t> block);

} // namespace korvane
