#pragma once

#include "model/records/FrameRecord.h"

#include <cstddef>
#include <string>

namespace korvane {

/// The size of a model; meshes of frames without the mesh flag do not count.
struct ModelCounts {
    std::size_t meshes = 0;
    std::size_t vertices = 0;
    std::size_t faces = 0;
};

/// Counts a frame and its descendants.
ModelCounts countModel(const FrameRecord& root);

/// "1 face", "2 faces".
std::string counted(std::size_t count, const char* singular, const char* plural);

/// The status bar's summary of an opened model: "9 meshes, 377 faces".
std::string summary(const ModelCounts& counts);

} // namespace korvane
