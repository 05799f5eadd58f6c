#pragma once

#include "formats/files/FileState.h"
#include "formats/text/TextOutput.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <optional>
#include <string_view>

namespace korvane {

/// Writes the whole model as dotXSI text, piece by piece; false when the sink stopped it. A slot
/// that leads to no material is written as a new material.
bool writeXsi(const ModelDocument& document, const TextSink& sink);

/// What every saved file begins with: the header and the blocks that tell nothing of the model.
std::string_view savedPreamble();

/// Saves the model as a dotXSI file. After a failure, at opening or later, the old file is as it
/// was. Symbolic links are followed, the rights to the file kept. The state of the file that was
/// written; nothing on failure.
std::optional<FileState> SaveFileXSI(const ModelDocument& document, const QString& fileName);

/// The caption of the message box for a failed save, whose text is the file name.
inline constexpr const char* saveFailureCaption = "Unable to save";

} // namespace korvane
