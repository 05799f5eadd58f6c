#pragma once

#include "model/document/ModelDocument.h"

#include <cstddef>
#include <string>

namespace korvane::bench {

/// A tree of frames, each with a wavy grid of 2000 triangles with normals, texture coordinates and
/// four materials, of about so many faces in all. The same model every time.
ModelDocument makeModel(std::size_t faces);

/// The model as dotXSI text.
std::string xsiText(const ModelDocument& document);

/// The model as an exporter writes DirectX text: six decimals, texture coordinates counted
/// downward, one for each vertex.
std::string directXText(const ModelDocument& document);

} // namespace korvane::bench
