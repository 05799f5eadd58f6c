#pragma once

#include "formats/text/TextOutput.h"
#include "model/records/MaterialRecord.h"
#include "render/math/VectorMath.h"

#include <cstddef>

namespace korvane {

/// Writes one material block at the given indentation. Colours of frames that glow have red and
/// green exchanged where their blue is exactly 0, as the reader exchanges them again.
void writeMaterial(TextOutput& out, std::size_t units, const MaterialRecord& material,
                   bool emissiveFrame);

/// Writes the four rows of a matrix, one a line.
void writeMatrixRows(TextOutput& out, std::size_t units, const Matrix4& matrix);

} // namespace korvane
