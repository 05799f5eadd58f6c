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

// A recovery copy is what a file cannot be: all that a model holds, bit by bit, also where a saved
// file would not give it back. Pictures are no part of it; they are looked for anew. The bytes:
//
//   "Korvane recovery", version (32 bits), bytes of the name (32), time (64, milliseconds since
//   1970), bytes of the records (64), their checksum (64), the model's name, the checksum of all
//   these (64); then the records: materials with their count, and the root frame.
//
// The fields of the records and the order of the bytes are those of ClipboardLayout.h; indices and
// floats may be any.

/// What is wrong with a copy.
enum class CopyFault { None, Damaged, OtherVersion };

/// What a copy tells at its beginning.
struct CopyHead {
    CopyFault fault = CopyFault::Damaged;
    QString model;         ///< its FileName
    std::int64_t time = 0; ///< when the copy was made, in milliseconds since 1970
    std::uint64_t records = 0;
    std::uint64_t contents = 0; ///< the checksum of the records
    std::size_t size = 0;       ///< of the head
};

/// No head is longer.
inline constexpr std::size_t longestCopyHead = 1U << 17U;

/// Writes a copy of the model as it is now; false where the sink does not take it. Throws
/// std::length_error where the model is too much for one copy.
bool writeCopy(const ModelDocument& document, std::int64_t time, const TextSink& sink);

/// The head of a copy, by the first bytes of it and its size.
CopyHead readCopyHead(std::span<const std::uint8_t> start, std::uint64_t size);

/// The model that a copy holds, named as before, never saved and modified; nothing unless every
/// byte is as it was written.
std::optional<ModelDocument> readCopy(std::span<const std::uint8_t> bytes,
                                      const TextureSource& textures);

// The records alone.

QByteArray encodeRecords(const ModelDocument& document);
/// Trusts nothing: nothing unless the bytes can be read to their end. Takes memory in proportion to
/// them.
std::optional<ModelDocument> decodeRecords(std::span<const std::uint8_t> bytes);

} // namespace korvane
