#pragma once

#include "formats/check/ModelCheck.h"

#include <QString>

#include <string>

namespace korvane::tool {

/// Reads a model as the editor does, and checks it. Textures are those of a folder alias. Throws
/// Refusal with the reason; a header of another version is told by name.
ModelCheck checkInput(const QString& file, const CheckRequest& request);

/// A finding about an input as one line: "FILE:LINE: warning: text [id]".
std::string warningLine(const QString& file, const Finding& finding);

} // namespace korvane::tool
