#pragma once

#include "formats/files/FileState.h"
#include "formats/text/TextOutput.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <optional>
#include <string_view>

namespace korvane {

/// Writes the whole model as dotXSI text, piece by piece; false if the sink stopped it. A slot that
/// refers to no material is written as a new material.
bool writeXsi(const ModelDocument& document, const TextSink& sink);

/// Returns the beginning of every saved file: the header and blocks independent of the model.
std::string_view savedPreamble();

/// Saves the model as a dotXSI file. Any failure leaves the old file unchanged. Follows symbolic
/// links, keeps the rights of the file. Returns the state of the written file, with an empty stamp
/// if another program has replaced it already; nullopt on failure.
std::optional<FileState> SaveFileXSI(const ModelDocument& document, const QString& fileName);

/// The caption of the message box for a failed save, whose text is the file name.
inline constexpr const char* saveFailureCaption = "Unable to save";

} // namespace korvane
