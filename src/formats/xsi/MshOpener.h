#pragma once

#include "formats/xsi/XsiReader.h"
#include "model/document/ModelDocument.h"

#include <QString>

namespace korvane {

/// How the opening of a binary mesh file ended.
struct MshOutcome {
    ReadStatus status = ReadStatus::Missing; ///< Done, Missing or CannotOpen
    QString saveFailed;                      ///< the file that could not be written, if any
};

/// "Opens" a file of the game's binary mesh format for a new document. The format is not decoded:
/// when the file can be opened, the empty model is written as "loaded.xsi" into the current folder.
/// Sets NeverSaved and, when the file cannot be opened, the FileName "Untitled".
MshOutcome FileOpenMSH(const QString& fileName, ModelDocument& document);

} // namespace korvane
