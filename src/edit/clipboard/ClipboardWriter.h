#pragma once

#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <QByteArray>

#include <span>

namespace korvane {

// docs/clipboard-format.md describes the bytes. Encoding throws std::length_error if the content
// does not fit into one block of less than four gigabytes.

/// Encodes the frame with its subtree and the materials of the table that their slots lead to.
/// Invalid indices are written as -1.
QByteArray encodeFrame(const FrameRecord& frame, std::span<const MaterialRecord> table);

/// Encodes the materials in their order.
QByteArray encodeMaterials(std::span<const MaterialRecord* const> materials);

} // namespace korvane
