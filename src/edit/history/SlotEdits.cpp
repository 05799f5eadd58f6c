#include "edit/history/SlotEdits.h"

#include "edit/history/EditSteps.h"
#include "model/records/FrameWalk.h"
#include "model/records/ListRoom.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <utility>

namespace korvane {

namespace {

// Texture coordinates: the frame's path is followed by their count and their numbers.

void stepTexCoords(EditStep& step) {
    const auto* values = step.value<std::vector<Vec2>>();
    const std::span<const std::int32_t> numbers = kindNumbers(step.action).subspan(1);
    std::vector<Vec2>& coordinates = step.frame->Mesh.TexCoords;
    for (std::size_t i = 0; values != nullptr && i < std::min(values->size(), numbers.size());
         ++i) {
        const auto number = static_cast<std::size_t>(numbers[i]);
        if (number < coordinates.size()) {
            coordinates[number] = (*values)[i];
        }
    }
    step.frame->Mesh.ListRevision.surfaceChanged();
}

struct SlotOfFace {
    std::int32_t face = 0;
    /// The number of faces that had a slot, if this face had none; else left out.
    std::int32_t facesBefore = -1;
};

/// Gives a face without a slot one, and the faces before it the last slot, which they were drawn
/// with. Undo removes these.
void stepFaceSlot(EditStep& step) {
    const auto numbers = step.numbers<SlotOfFace>();
    const auto face = static_cast<std::size_t>(numbers.face);
    MeshRecord& mesh = step.frame->Mesh;
    std::vector<std::int32_t>& slots = mesh.FaceSlotIndex;
    if (numbers.facesBefore >= 0) {
        const std::int32_t lastSlot = count32(mesh.MaterialSlotList.size()) - 1;
        slots.resize(step.forward ? face + 1 : static_cast<std::size_t>(numbers.facesBefore),
                     std::max(lastSlot, 0));
    }
    const auto* slot = step.value<std::int32_t>();
    if (slot != nullptr && face < slots.size()) {
        slots[face] = *slot;
    }
    mesh.ListRevision.surfaceChanged();
}

void stepAppendSlot(EditStep& step) {
    MeshRecord& mesh = step.frame->Mesh;
    const auto* material = std::get_if<std::int32_t>(&step.action.after);
    if (step.forward && material != nullptr) {
        mesh.MaterialSlotList.push_back(*material);
    } else if (!step.forward && !mesh.MaterialSlotList.empty()) {
        mesh.MaterialSlotList.pop_back();
    }
    mesh.ListRevision.surfaceChanged(); // faces without an entry use the last slot
}

void stepAddMaterial(EditStep& step) {
    std::vector<MaterialRecord>& table = step.document.Materials;
    if (step.forward) {
        table.emplace_back(); // deliberately a default one for redo too
    } else if (!table.empty()) {
        table.pop_back();
    }
}

void stepAddMeshMaterial(EditStep& step) {
    if (step.forward) {
        reserveMore(step.frame->Mesh.MaterialSlotList, 1);
    }
    stepAddMaterial(step);
    stepAppendSlot(step);
}

// Removing slots

struct SlotTaken {
    std::int32_t facesMoved = 0;
    std::int32_t slot = 0;
    std::int32_t material = 0;
};

/// The faces whose slot number decreases when a slot is removed. Faces of slot 0 keep it, even if
/// that is the removed slot.
std::vector<std::int32_t> facesAbove(const std::vector<std::int32_t>& faceSlots, std::size_t slot) {
    const auto moves = [slot](std::int32_t of) { return of >= count32(slot) && of != 0; };
    std::vector<std::int32_t> faces;
    faces.reserve(static_cast<std::size_t>(std::ranges::count_if(faceSlots, moves)));
    for (std::size_t face = 0; face < faceSlots.size(); ++face) {
        if (moves(faceSlots[face])) {
            faces.push_back(count32(face));
        }
    }
    return faces;
}

/// Removes a slot; `faces` are those that facesAbove() returned.
void takeSlot(std::vector<std::int32_t>& slots, std::vector<std::int32_t>& faceSlots,
              std::size_t slot, std::span<const std::int32_t> faces) {
    slots.erase(placeIn(slots, slot));
    for (const std::int32_t face : faces) {
        --faceSlots[static_cast<std::size_t>(face)];
    }
}

void putSlotBack(MeshRecord& mesh, std::size_t slot, std::int32_t material,
                 std::span<const std::int32_t> faces) {
    mesh.MaterialSlotList.insert(placeIn(mesh.MaterialSlotList, slot), material);
    for (const std::int32_t face : faces) {
        if (static_cast<std::size_t>(face) < mesh.FaceSlotIndex.size()) {
            ++mesh.FaceSlotIndex[static_cast<std::size_t>(face)];
        }
    }
    mesh.ListRevision.surfaceChanged();
}

void stepRemoveSlot(EditStep& step) {
    MeshRecord& mesh = step.frame->Mesh;
    auto numbers = step.numbers<SlotTaken>();
    const auto slot = static_cast<std::size_t>(numbers.slot);
    if (!step.forward) {
        if (const auto* faces = step.value<std::vector<std::int32_t>>()) {
            putSlotBack(mesh, slot, numbers.material, *faces);
        }
    } else if (slot < mesh.MaterialSlotList.size()) {
        std::vector<std::int32_t> faces = facesAbove(mesh.FaceSlotIndex, slot);
        numbers.facesMoved = count32(faces.size());
        numbers.material = mesh.MaterialSlotList[slot];
        takeSlot(mesh.MaterialSlotList, mesh.FaceSlotIndex, slot, faces);
        mesh.ListRevision.surfaceChanged();
        std::ranges::copy(plainNumbers(numbers), kindNumbers(step.action).begin());
        step.action.before = std::move(faces);
    }
}

// Deleting a material: the path starts with its number. A note of each slot removed with it
// follows, in the order of removal: the depth and child numbers of the frame, an unused number, the
// slot, the count of faces that moved, and these faces. `index` counts the notes.

void noteSlot(EditAction& notes, std::span<const std::int32_t> frame, std::size_t slot,
              std::span<const std::int32_t> faces) {
    std::vector<std::int32_t>& path = notes.path;
    path.push_back(count32(frame.size()));
    path.insert(path.end(), frame.begin(), frame.end());
    path.insert(path.end(), {0, count32(slot), count32(faces.size())});
    path.insert(path.end(), faces.begin(), faces.end());
    ++notes.index;
}

struct SlotNote {
    FrameRecord* frame; ///< null if missing
    std::size_t slot;
    std::span<const std::int32_t> faces;
};

std::vector<SlotNote> slotNotes(ModelDocument& document, const EditAction& action) {
    std::vector<SlotNote> notes;
    std::span<const std::int32_t> rest = std::span(action.path).subspan(1);
    for (std::uint32_t i = 0; i < action.index; ++i) {
        const auto depth = static_cast<std::size_t>(rest[0]);
        const auto faces = static_cast<std::size_t>(rest[depth + 3]);
        notes.push_back({frameAt(document.Root, rest.subspan(1, depth)),
                         static_cast<std::size_t>(rest[depth + 2]),
                         rest.subspan(depth + 4, faces)});
        rest = rest.subspan(depth + 4 + faces);
    }
    return notes;
}

/// The new lists of a mesh without a material.
struct NewLists {
    MeshRecord* mesh;
    std::vector<std::int32_t> slots;
    std::vector<std::int32_t> faceSlots; ///< only if a slot was removed
};

/// Computes a mesh's lists without a material, and notes the removed slots.
NewLists withoutMaterial(FrameRecord& frame, std::span<const std::int32_t> childNumbers,
                         std::int32_t material, EditAction& notes) {
    NewLists lists = {&frame.Mesh, frame.Mesh.MaterialSlotList, {}};
    if (std::ranges::find(lists.slots, material) != lists.slots.end()) {
        lists.faceSlots = frame.Mesh.FaceSlotIndex;
    }
    for (std::size_t slot = 0; slot < lists.slots.size();) {
        if (lists.slots[slot] == material) {
            const std::vector<std::int32_t> faces = facesAbove(lists.faceSlots, slot);
            noteSlot(notes, childNumbers, slot, faces);
            takeSlot(lists.slots, lists.faceSlots, slot, faces);
            continue;
        }
        lists.slots[slot] -= lists.slots[slot] > material ? 1 : 0;
        ++slot;
    }
    return lists;
}

/// Calls `use` for frames with a slot that leads to the material or a later one. Includes meshes
/// that are switched off, as they may be switched on again.
template <class Use>
void forFramesWithSlotsFrom(ModelDocument& document, std::int32_t material, Use use) {
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        const std::vector<std::int32_t>& slots = walk.frame().Mesh.MaterialSlotList;
        if (std::ranges::any_of(slots, [&](std::int32_t slot) { return slot >= material; })) {
            use(walk.frame(), walk.childNumbers());
        }
    }
}

void takeMaterial(EditStep& step, std::int32_t material) {
    std::vector<MaterialRecord>& table = step.document.Materials;
    auto parts = std::make_unique<RemovedParts>();
    parts->materials.reserve(1);
    EditAction notes;
    notes.path = {material};
    std::vector<NewLists> changed;
    forFramesWithSlotsFrom(step.document, material, [&](FrameRecord& frame, auto childNumbers) {
        changed.push_back(withoutMaterial(frame, childNumbers, material, notes));
    });
    notes.path.shrink_to_fit();
    // nothing of what follows can fail
    for (NewLists& lists : changed) {
        if (lists.slots.size() < lists.mesh->MaterialSlotList.size()) {
            lists.mesh->FaceSlotIndex.swap(lists.faceSlots);
            lists.mesh->ListRevision.surfaceChanged();
        }
        lists.mesh->MaterialSlotList.swap(lists.slots);
    }
    const auto place = placeIn(table, static_cast<std::size_t>(material));
    parts->materials.push_back(std::move(*place));
    table.erase(place);
    step.action.before = std::move(parts);
    step.action.path = std::move(notes.path);
    step.action.index = notes.index;
}

void putMaterialBack(EditStep& step, std::int32_t material) {
    std::vector<MaterialRecord>& table = step.document.Materials;
    RemovedParts* parts = keptParts(step.action.before);
    if (parts == nullptr) {
        return;
    }
    const std::vector<SlotNote> notes = slotNotes(step.document, step.action);
    const FrameRecord* last = nullptr;
    std::size_t ofLast = 0; // the notes of one mesh are adjacent
    for (const SlotNote& note : notes) {
        ofLast = note.frame == last ? ofLast + 1 : 1;
        last = note.frame;
        if (note.frame != nullptr) {
            reserveMore(note.frame->Mesh.MaterialSlotList, ofLast);
        }
    }
    std::vector<FrameRecord*> renumbered;
    forFramesWithSlotsFrom(step.document, material,
                           [&](FrameRecord& frame, auto) { renumbered.push_back(&frame); });
    reserveMore(table, parts->materials.size());
    // nothing of what follows can fail
    for (FrameRecord* frame : renumbered) {
        for (std::int32_t& slot : frame->Mesh.MaterialSlotList) {
            slot += slot >= material ? 1 : 0;
        }
    }
    // in reverse: a mesh may have had several slots of the material
    for (auto note = notes.rbegin(); note != notes.rend(); ++note) {
        if (note->frame != nullptr) {
            putSlotBack(note->frame->Mesh, note->slot, material, note->faces);
        }
    }
    table.insert(placeIn(table, static_cast<std::size_t>(material)),
                 std::move_iterator(parts->materials.begin()),
                 std::move_iterator(parts->materials.end()));
    step.action.before = {};
}

void stepDeleteMaterial(EditStep& step) {
    const std::int32_t material = step.action.path[0];
    if (!step.forward) {
        putMaterialBack(step, material);
    } else if (static_cast<std::size_t>(material) < step.document.Materials.size()) {
        takeMaterial(step, material);
    }
}

constexpr std::array<EditKindRow, 7> rows = {{
    {EditKind::TexCoords, "move texture coordinates", true, refresh::materials, stepTexCoords},
    {EditKind::FaceSlot, "change material of a face", true, refresh::materials, stepFaceSlot},
    {EditKind::AppendSlot, "add material to mesh", true, refresh::materialsAndTree, stepAppendSlot},
    {EditKind::RemoveSlot, "remove material from mesh", true, refresh::materialsAndTree,
     stepRemoveSlot},
    {EditKind::AddMeshMaterial, "add material to mesh", true, refresh::materialsAndTree,
     stepAddMeshMaterial},
    {EditKind::AddMaterial, "add material", false, refresh::materialsAndTree, stepAddMaterial},
    {EditKind::DeleteMaterial, "delete material", false, refresh::materialsAndTree,
     stepDeleteMaterial},
}};

} // namespace

std::span<const EditKindRow> slotKinds() {
    return rows;
}

void recordTexCoords(EditHistory& history, ModelDocument& document, const FramePath& frame,
                     std::span<const std::int32_t> numbers, std::vector<Vec2> before,
                     std::vector<Vec2> after) {
    if (frameAt(document.Root, frame) == nullptr) {
        return;
    }
    std::vector<std::int32_t> counted = {count32(numbers.size())};
    counted.insert(counted.end(), numbers.begin(), numbers.end());
    EditAction action = frameAction(EditKind::TexCoords, frame, counted);
    action.before = std::move(before);
    action.after = std::move(after);
    history.record(document, std::move(action));
}

void setFaceSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                 std::int32_t face, std::int32_t slot) {
    const FrameRecord* target = frameAt(document.Root, frame);
    const auto number = static_cast<std::size_t>(face);
    if (target == nullptr) {
        return;
    }
    const std::vector<std::int32_t>& slots = target->Mesh.FaceSlotIndex;
    if (number >= slots.size() && number >= target->Mesh.Faces.size()) {
        return;
    }
    const auto numbers = plainNumbers(SlotOfFace{face, count32(slots.size())});
    const bool hasSlot = number < slots.size();
    EditAction action =
        frameAction(EditKind::FaceSlot, frame, std::span(numbers).first(hasSlot ? 1 : 2));
    if (hasSlot) {
        action.before = slots[number];
    }
    action.after = slot;
    history.record(document, std::move(action));
}

void appendSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                std::int32_t material) {
    if (frameAt(document.Root, frame) != nullptr) {
        EditAction action = frameAction(EditKind::AppendSlot, frame);
        action.after = material;
        history.record(document, std::move(action));
    }
}

void removeSlot(EditHistory& history, ModelDocument& document, const FramePath& frame,
                std::int32_t slot) {
    const FrameRecord* target = frameAt(document.Root, frame);
    if (target != nullptr &&
        static_cast<std::size_t>(slot) < target->Mesh.MaterialSlotList.size()) {
        const SlotTaken numbers = {.slot = slot}; // the step fills in the rest
        history.record(document, frameAction(EditKind::RemoveSlot, frame, plainNumbers(numbers)));
    }
}

void addMeshMaterial(EditHistory& history, ModelDocument& document, const FramePath& frame) {
    if (frameAt(document.Root, frame) != nullptr) {
        EditAction action = frameAction(EditKind::AddMeshMaterial, frame);
        action.after = count32(document.Materials.size());
        history.record(document, std::move(action));
    }
}

void addMaterial(EditHistory& history, ModelDocument& document) {
    history.record(document, materialAction(EditKind::AddMaterial, 0));
}

void deleteMaterial(EditHistory& history, ModelDocument& document, std::size_t material) {
    if (material < document.Materials.size()) {
        EditAction action = materialAction(EditKind::DeleteMaterial, 0);
        action.path = {count32(material)};
        history.record(document, std::move(action));
    }
}

} // namespace korvane
