#pragma once

#include "tool/ModelInput.h"

namespace korvane::tool {

/// Prints the contents of a model for people: a line with its name and counts, its structure as the
/// editor shows it, then bounds, materials and animations.
void printModel(const QString& name, ModelInput& model);

} // namespace korvane::tool
