#pragma once

#include "edit/materials/TextureViewText.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace korvane {

/// Describes a node of the structure tree in lines: its size, and for a material its opacity, its
/// texture and the file of that. Empty for a missing node.
QString rowDetails(const ModelDocument& document, const NodeData& node, const TextureFinder& find);

/// The diffuse colour of a node's material, as 0xffrrggbb.
std::optional<std::uint32_t> rowSample(const ModelDocument& document, const NodeData& node);

} // namespace korvane
