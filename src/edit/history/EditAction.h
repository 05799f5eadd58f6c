#pragma once

#include "model/records/FrameFlags.h"
#include "model/records/MaterialRecord.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace korvane {

/// The kind of change in an entry of the history.
enum class EditKind : std::uint32_t {
    TextureFile = 1,
    Ambient = 2,
    FaceColor = 3,
    Specular = 4,
    Emissive = 5,
    Opacity = 6,
    TextureOn = 7,
    TexCoords = 8, ///< points of the texture-coordinate editor, moved by a drag
    FaceSlot = 9,
    AppendSlot = 10,
    RemoveSlot = 11,
    AddMeshMaterial = 12, ///< a new material for the document and a slot of a mesh
    AddMaterial = 13,
    DeleteMaterial = 14,
    MoveFrame = 15, ///< a frame's matrix, changed by a drag
    RenameFrame = 16,
    AddFrame = 17,
    DeleteFrame = 18,
    FrameOptions = 19,
    Power = 20,
    PasteMaterials = 21,
    PasteMeshMaterials = 22,
    PasteFrame = 23,
};

/// What windows must refresh after an undo or a redo.
struct RefreshFlags {
    bool refreshMaterials = false;
    bool refreshGeometry = false;
    bool rebuildTree = false;

    bool operator==(const RefreshFlags&) const = default;
};

/// A frame with its subtree and materials while they are not in the model.
struct RemovedParts {
    std::vector<MaterialRecord> materials;
    std::vector<FrameRecord> frames; ///< at most one
};

/// One of the two recorded values of an entry. The kind decides its type.
using EditData = std::variant<std::monostate, std::string, ColorRGB, float, bool, std::int32_t,
                              std::vector<Vec2>, std::vector<std::int32_t>, Matrix4, FrameFlags,
                              std::unique_ptr<RemovedParts>>;

/// One entry of the history.
struct EditAction {
    EditKind kind{};
    EditData after;  ///< what redo writes
    EditData before; ///< what undo writes
    /// Kinds of materials: the number of the material. Kinds of frames: the depth of the frame.
    /// DeleteMaterial: the number of slots removed. PasteMaterials: the first material.
    std::uint32_t index = 0;
    /// Kinds of frames: the 1-based child numbers of the frame (of the parent if a frame is added
    /// or removed), one unused number, then what the kind needs.
    std::vector<std::int32_t> path;
};

} // namespace korvane
