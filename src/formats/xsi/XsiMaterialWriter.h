#pragma once

#include "formats/text/TextOutput.h"
#include "model/records/MaterialRecord.h"
#include "render/math/VectorMath.h"

#include <cstddef>

namespace korvane {

/// Writes one material block at the given indentation. In frames that glow, exchanges red and green
/// of colours whose blue is exactly 0; the reader exchanges them again.
void writeMaterial(TextOutput& out, std::size_t units, const MaterialRecord& material,
                   bool emissiveFrame);

/// Writes the four rows of a matrix, each on its own line.
void writeMatrixRows(TextOutput& out, std::size_t units, const Matrix4& matrix);

} // namespace korvane
