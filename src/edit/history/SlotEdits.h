#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

// These change the slots and texture coordinates of a frame's mesh, or the material table, as one
// entry of the history. Slots and faces are numbers in the mesh. They ignore a frame or face that
// does not exist, and the removal of what is not there.

/// Records texture coordinates that a drag has moved: their numbers in the mesh, old and new
/// values. The three lists have the same length.
void recordTexCoords(EditHistory& history, ModelDocument& document, const FramePath& frame,
                     std::span<const std::int32_t> numbers, std::vector<Vec2> before,
                     std::vector<Vec2> after);
void setFaceSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                 std::int32_t face, std::int32_t slot);
void appendSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                std::int32_t material);
/// Faces of this slot and higher ones move one down; those of slot 0 deliberately stay.
void removeSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                std::int32_t slot);
/// Appends a default material to the table, and a slot for it to the frame's mesh.
void addMeshMaterial(EditHistory& history, ModelDocument& document, const FramePath& frame);
void addMaterial(EditHistory& history, ModelDocument& document);
/// Removes the material's slots from all meshes too.
void deleteMaterial(EditHistory& history, ModelDocument& document, std::size_t material);

} // namespace korvane
