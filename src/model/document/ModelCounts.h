#pragma once

#include "model/records/FrameRecord.h"

#include <cstddef>
#include <string>

namespace korvane {

/// How much a model holds; meshes of frames without the mesh flag do not count.
struct ModelCounts {
    std::size_t meshes = 0;
    std::size_t vertices = 0;
    std::size_t faces = 0;
};

/// Counts a frame and all below it.
ModelCounts countModel(const FrameRecord& root);

/// "1 face", "2 faces".
std::string counted(std::size_t count, const char* singular, const char* plural);

/// What the status bar says of a model just read: "9 meshes, 377 faces".
std::string summary(const ModelCounts& counts);

} // namespace korvane
