#pragma once

#include "edit/clipboard/ClipboardBlock.h"

#include <cstdint>
#include <optional>
#include <span>

namespace korvane {

/// The content of a block by its first four bytes alone, which may be all there is; nothing if they
/// name none.
std::optional<ClipboardContent> contentOf(std::span<const std::uint8_t> block);

/// Reads a block, which any program may have written: nothing unless it can be read in full and
/// all its indices lead into what it holds. Takes memory in proportion to the bytes, and time too.
std::optional<ClipboardItem> decodeBlock(std::span<const std::uint8_t> block);

} // namespace korvane
