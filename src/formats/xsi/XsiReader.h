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

/// How the reading of a model file ended.
enum class ReadStatus {
    Done,       ///< the model is what the file held, up to the first number that is none
    Missing,    ///< no file of that name; nothing was read
    CannotOpen, ///< the file is there but cannot be read, or not into this memory
    NotValid,   ///< the first 16 bytes are none of the headers
    Cancelled,  ///< stopped by the one who asked for it; the document is empty
};

/// Told now and then, while a file is read, how many of its bytes are; false stops the reading.
using ReadProgress = std::function<bool(std::size_t done, std::size_t size)>;

/// Reads a dotXSI or DirectX text file into a new document (empty root, empty table). On success
/// NeverSaved and Modified are cleared and the derived data of all frames is computed. Text that
/// follows the header never fails: reading ends where a number cannot be extracted, and everything
/// completed by then is kept. Without a source of textures every image is the 1 x 1 one. Gives
/// Done, NotValid, or CannotOpen with an empty document when the bytes cannot be read to their end
/// or the model does not fit into memory; nothing is thrown. `notes`, if given, is told what the
/// reading left out, and where the parts of the model began.
ReadStatus readXsi(TextScanner text, ModelDocument& document, const TextureSource& textures = {},
                   ReadNotes* notes = nullptr);

/// What else a reading has found out.
struct OpenNotes {
    UnseenTextures unseen;
    std::optional<FileState> file; ///< the state of the file that was read
};

/// Opens and reads the file into a new document, gives it the flags and the FileName that follow
/// from the outcome, and selects the root. A missing file gives an empty document of that name that
/// was never saved.
ReadStatus FileOpenXSI(const QString& fileName, ModelDocument& document,
                       const ReadProgress& progress = {}, OpenNotes* notes = nullptr);

/// The caption of the message box for a failure, whose text is the file name; empty where no
/// message is shown.
QString failureCaption(ReadStatus status, const QString& fileName);

} // namespace korvane
