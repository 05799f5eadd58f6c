#pragma once

#include "tool/ModelFacts.h"

#include <QJsonObject>

namespace korvane::tool {

/// The version of the document that `info --json` prints. It increases when a member goes or
/// changes its meaning; new members may come at any time.
inline constexpr int infoVersion = 1;

/// Returns the contents of a model as docs/tool.md describes them.
QJsonObject modelJson(const ModelDocument& document, const ModelFacts& facts);

} // namespace korvane::tool
