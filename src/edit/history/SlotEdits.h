#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

// Records of the slots and texture coordinates of a frame's mesh, and of the material table that
// slots lead to. Slots and faces are numbers in the mesh. Each makes its change, as one entry of
// the history; what leads nowhere in the model is left alone.

/// Texture coordinates that a drag has moved: their numbers in the mesh, and where they were and
/// are. The three lists are of one length.
void recordTexCoords(EditHistory& history, ModelDocument& document, const FramePath& frame,
                     std::span<const std::int32_t> numbers, std::vector<Vec2> before,
                     std::vector<Vec2> after);
void setFaceSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                 std::int32_t face, std::int32_t slot);
void appendSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                std::int32_t material);
/// Faces of the slot and of those above it move one down; those of slot 0 deliberately stay there.
void removeSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                std::int32_t slot);
/// A new material at the end of the table, with a slot of the frame's mesh for it.
void addMeshMaterial(EditHistory& history, ModelDocument& document, const FramePath& frame);
void addMaterial(EditHistory& history, ModelDocument& document);
/// Every mesh loses the slots of the material.
void deleteMaterial(EditHistory& history, ModelDocument& document, std::size_t material);

} // namespace korvane
