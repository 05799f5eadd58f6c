#pragma once

#include "tool/ModelInput.h"

namespace korvane::tool {

/// Prints what a model holds, for people: its counts in one line with its name, its structure as
/// the editor shows it, then bounds, materials and animations.
void printModel(const QString& name, ModelInput& model);

} // namespace korvane::tool
