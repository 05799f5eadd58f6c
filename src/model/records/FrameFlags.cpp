#include "model/records/FrameFlags.h"

namespace korvane {

FrameFlags frameFlags(const FrameRecord& frame) {
    const MeshRecord& mesh = frame.Mesh;
    return {frame.HasBasePose, frame.RenderBackwards, frame.Emissive,    frame.KV2Animated,
            frame.GFlag,       frame.HasMesh,         mesh.HasMaterials, mesh.HasNormals,
            mesh.HasTexCoords, mesh.HasVertexColors,  frame.HasAnimation};
}

void setFrameFlags(FrameRecord& frame, const FrameFlags& flags) {
    frame.HasBasePose = flags.HasBasePose;
    frame.RenderBackwards = flags.RenderBackwards;
    frame.Emissive = flags.Emissive;
    frame.KV2Animated = flags.KV2Animated;
    frame.GFlag = flags.GFlag;
    frame.HasMesh = flags.HasMesh;
    if (frame.Mesh.HasNormals != flags.HasNormals) {
        frame.Mesh.ListRevision.shapeChanged();
    } else if (frame.Mesh.HasMaterials != flags.HasMaterials ||
               frame.Mesh.HasTexCoords != flags.HasTexCoords) {
        frame.Mesh.ListRevision.surfaceChanged();
    }
    frame.Mesh.HasMaterials = flags.HasMaterials;
    frame.Mesh.HasNormals = flags.HasNormals;
    frame.Mesh.HasTexCoords = flags.HasTexCoords;
    frame.Mesh.HasVertexColors = flags.HasVertexColors;
    frame.HasAnimation = flags.HasAnimation;
}

} // namespace korvane
