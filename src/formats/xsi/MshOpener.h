#pragma once

#include "formats/xsi/XsiReader.h"
#include "model/document/ModelDocument.h"

#include <QString>

namespace korvane {

/// The outcome of opening a binary mesh file.
struct MshOutcome {
    ReadStatus status = ReadStatus::Missing; ///< Done, Missing or CannotOpen
    QString saveFailed;                      ///< the file that could not be written, if any
};

/// "Opens" a file of the game's binary mesh format for a new document, without decoding it: if it
/// can be opened, saves the empty model as "loaded.xsi" in the current folder. Sets NeverSaved
/// unless the file is missing, and the FileName "Untitled" if it cannot be opened.
MshOutcome FileOpenMSH(const QString& fileName, ModelDocument& document);

} // namespace korvane
