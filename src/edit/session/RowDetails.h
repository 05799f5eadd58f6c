#pragma once

#include "model/document/ModelDocument.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace korvane {

/// What a node of the structure tree stands for, in lines: how large it is, and for a material its
/// opacity and its texture with the file that it came from. Empty for a node that is gone.
QString rowDetails(const ModelDocument& document, const NodeData& node);

/// The diffuse colour of the material that a node stands for, as 0xffrrggbb.
std::optional<std::uint32_t> rowSample(const ModelDocument& document, const NodeData& node);

} // namespace korvane
