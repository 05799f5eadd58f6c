#pragma once

#include "model/records/FrameRecord.h"

namespace korvane {

/// The one-byte flags of a frame and its mesh that the frame options dialog shows.
struct FrameFlags {
    bool HasBasePose = false;
    bool RenderBackwards = false;
    bool Emissive = false;
    bool KV2Animated = false;
    bool GFlag = false;
    bool HasMesh = false;
    bool HasMaterials = false;
    bool HasNormals = false;
    bool HasTexCoords = false;
    bool HasVertexColors = false;
    bool HasAnimation = false;

    bool operator==(const FrameFlags&) const = default;
};

FrameFlags frameFlags(const FrameRecord& frame);
/// Sets the flags of a frame and its mesh and leaves their lists alone.
void setFrameFlags(FrameRecord& frame, const FrameFlags& flags);

} // namespace korvane
