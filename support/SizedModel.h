#pragma once

#include "model/document/ModelDocument.h"

#include <cstddef>
#include <string>

namespace korvane::test {

// Models of a given size, always the same: the results of the benchmarks depend on them.

/// Returns a model of about `faces` faces, in frames that each have a wavy grid of 2000 triangles
/// with normals, texture coordinates and four materials.
ModelDocument gridModel(std::size_t faces);

/// Returns `count` frames in groups of a hundred below the root, half of them with a child.
ModelDocument groupedFrames(std::size_t count);

/// Returns a model of grids as an exporter writes DirectX text: six decimals, one pair of texture
/// coordinates for each vertex, with v pointing down.
std::string directXText(const ModelDocument& document);

} // namespace korvane::test
