#pragma once

#include "formats/files/FileState.h"
#include "formats/text/ReadNotes.h"
#include "formats/text/TextScanner.h"
#include "formats/textures/TextureLoader.h"
#include "model/document/ModelDocument.h"
#include "model/records/TextureImage.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <optional>

namespace korvane {

/// The outcome of reading a model file.
enum class ReadStatus {
    Done,       ///< the model holds what the file does, up to the first malformed number
    Missing,    ///< there is no file of that name
    CannotOpen, ///< the file exists but cannot be read, or does not fit into memory
    NotValid,   ///< the first 16 bytes are not a known header
    Cancelled,  ///< stopped by the caller; the document is empty
};

/// Called repeatedly with the bytes of the file read so far and its size; returning false cancels.
using ReadProgress = std::function<bool(std::size_t done, std::size_t size)>;

/// Reads a dotXSI or DirectX text file into a new document (empty root, empty table). On success,
/// clears NeverSaved and Modified and computes the derived data of all frames. Malformed text after
/// the header is no failure: reading ends where a number cannot be extracted, and keeps what is
/// complete by then. Without a texture source, every image is the 1 x 1 one. Returns Done,
/// NotValid, or, with an empty document, CannotOpen if the bytes cannot be read to their end or the
/// model does not fit into memory; does not throw. `notes`, if given, receives what the reader left
/// out and where the parts of the model begin.
ReadStatus readXsi(TextScanner text, ModelDocument& document, const TextureSource& textures = {},
                   ReadNotes* notes = nullptr);

/// Further results of reading a file.
struct OpenNotes {
    UnseenTextures unseen;
    std::optional<FileState> file; ///< the state of the file that was read
};

/// Opens and reads the file into a new document, sets its flags and FileName according to the
/// outcome, and selects the root. A missing file yields an empty, never saved document of that
/// name.
ReadStatus FileOpenXSI(const QString& fileName, ModelDocument& document,
                       const ReadProgress& progress = {}, OpenNotes* notes = nullptr);

/// Returns the caption of the message box for a failure, whose text is the file name; empty if no
/// message is shown.
QString failureCaption(ReadStatus status, const QString& fileName);

} // namespace korvane
