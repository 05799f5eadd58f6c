#pragma once

#include "formats/text/TextOutput.h"
#include "model/document/ModelDocument.h"
#include "model/records/TextureImage.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace korvane {

// A recovery copy holds all of a model bit by bit, including what a saved file would lose. Pictures
// are left out and loaded again. The bytes:
//
//   "Korvane recovery", version (32 bits), size of the name (32), time (64, milliseconds since
//   1970), size of the records (64), their checksum (64), the model's name, the checksum of all
//   these (64); then the records: the count of materials, these, and the root frame.
//
// Record fields and byte order are those of ClipboardLayout.h; indices and floats may have any
// value.

/// What is wrong with a copy.
enum class CopyFault { None, Damaged, OtherVersion };

/// The head of a copy.
struct CopyHead {
    CopyFault fault = CopyFault::Damaged;
    QString model;         ///< its FileName
    std::int64_t time = 0; ///< when the copy was made, in milliseconds since 1970
    std::uint64_t records = 0;
    std::uint64_t contents = 0; ///< the checksum of the records
    std::size_t size = 0;       ///< of the head
};

/// The longest valid head.
inline constexpr std::size_t longestCopyHead = 1U << 17U;

/// Writes a copy of the model. Returns false if the sink fails. Throws std::length_error if the
/// model is too large for a copy.
bool writeCopy(const ModelDocument& document, std::int64_t time, const TextSink& sink);

/// Reads the head of a copy from its first bytes, given its size in bytes.
CopyHead readCopyHead(std::span<const std::uint8_t> start, std::uint64_t size);

/// Reads the model of a copy, with its name, never saved and modified; nothing unless all bytes are
/// as written.
std::optional<ModelDocument> readCopy(std::span<const std::uint8_t> bytes,
                                      const TextureSource& textures);

// Only the records, without a head.

QByteArray encodeRecords(const ModelDocument& document);
/// Trusts nothing in the bytes: returns nothing unless they can be read to their end. Takes memory
/// in proportion to them.
std::optional<ModelDocument> decodeRecords(std::span<const std::uint8_t> bytes);

} // namespace korvane
