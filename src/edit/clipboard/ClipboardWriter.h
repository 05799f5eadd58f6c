#pragma once

#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <QByteArray>

#include <span>

namespace korvane {

// docs/clipboard-format.md tells the bytes. Encoding throws std::length_error where the content is
// too much for one block, which holds less than four gigabytes.

/// The frame with its subtree and those materials of the table that their slots lead to. An index
/// that leads nowhere is written as one that says so.
QByteArray encodeFrame(const FrameRecord& frame, std::span<const MaterialRecord> table);

/// The materials in their order.
QByteArray encodeMaterials(std::span<const MaterialRecord* const> materials);

} // namespace korvane
