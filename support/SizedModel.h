#pragma once

#include "model/document/ModelDocument.h"

#include <cstddef>
#include <string>

namespace korvane::test {

// Models of a given size, the same ones every time: the figures of the benchmarks depend on them.

/// A tree of frames, each with a wavy grid of 2000 triangles with normals, texture coordinates and
/// four materials, of about so many faces in all.
ModelDocument gridModel(std::size_t faces);

/// So many frames in groups of a hundred below the root, half of them with a child.
ModelDocument groupedFrames(std::size_t count);

/// A model of grids as an exporter writes DirectX text: six decimals, texture coordinates counted
/// downward, one for each vertex.
std::string directXText(const ModelDocument& document);

} // namespace korvane::test
