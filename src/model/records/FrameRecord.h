#pragma once

#include "model/records/AnimationKeyRecord.h"
#include "model/records/FramePath.h"
#include "model/records/MeshRecord.h"
#include "model/records/ViewSlot.h"
#include "render/math/VectorMath.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvane {

/// Frames nest no deeper than this below the root, which bounds recursion over a tree, destruction
/// included, whatever a file holds.
inline constexpr std::size_t maxFrameDepth = 1000;

/// A frame's relation to the selected one.
enum class SelectState : std::int32_t { Other = 0, Selected = 1, Descendant = 2 };

/// One frame of the hierarchy with its mesh, animation keys and children, all held by value.
struct FrameRecord {
    Matrix4 Matrix; ///< relative to the parent
    Matrix4 BasePose;
    bool HasBasePose = false;
    bool RenderBackwards = false;
    bool Emissive = false;
    bool KV2Animated = false;
    bool GFlag = false;
    std::string Name; ///< lower case, without the "frm-" prefix; bytes as in the file
    std::vector<FrameRecord> Children;

    bool HasMesh = false; ///< when clear the mesh lists are ignored
    Vec3 BoundMin;        ///< computed when the model is read, in no file
    Vec3 BoundMax;        ///< computed when the model is read, in no file
    std::int32_t PathDepth = 0;
    FramePath Path;             ///< computed when the model is read, in no file
    std::int32_t TreeNode = -1; ///< the frame's node in the structure tree, -1 before that is built
    korvane::SelectState SelectState = korvane::SelectState::Other;
    /// The views draw a frame only if the first and the third are set.
    std::array<bool, 3> ViewFlags = {true, true, true};
    MeshRecord Mesh;

    bool HasAnimation = false;
    std::int32_t AnimationKeyType = 0;
    std::vector<AnimationKeyRecord> AnimationKeys;

    ViewSlot Views; ///< drawing's data for the frame; copies of the frame start empty

    bool operator==(const FrameRecord&) const = default;
};

} // namespace korvane
