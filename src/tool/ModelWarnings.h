#pragma once

#include "formats/check/ModelCheck.h"

#include <QString>

#include <string>

namespace korvane::tool {

/// Reads a model as the editor does, and checks it. `request.textures`, if set, must use the path
/// of a FolderAlias. Throws Refusal with the reason, which names a header of another version.
ModelCheck checkInput(const QString& file, const CheckRequest& request);

/// Returns a finding about an input as one line: "FILE:LINE: warning: text [id]".
std::string warningLine(const QString& file, const Finding& finding);

} // namespace korvane::tool
