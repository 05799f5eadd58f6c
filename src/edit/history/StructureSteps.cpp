#include "edit/history/EditSteps.h"
#include "model/records/FrameWalk.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace korvane {

namespace {

template <class Element>
auto at(std::vector<Element>& list, std::size_t place) {
    return list.begin() + static_cast<std::ptrdiff_t>(std::min(place, list.size()));
}

/// Takes a slot out of a mesh and moves the faces of it and of those above it one down. A face of
/// slot 0 stays there, also when it is slot 0 that goes. Gives the faces moved.
std::vector<std::int32_t> takeSlot(FrameRecord& frame, std::size_t slot) {
    MeshRecord& mesh = frame.Mesh;
    mesh.ListRevision.surfaceChanged();
    mesh.MaterialSlotList.erase(at(mesh.MaterialSlotList, slot));
    std::vector<std::int32_t> faces;
    for (std::size_t face = 0; face < mesh.FaceSlotIndex.size(); ++face) {
        std::int32_t& index = mesh.FaceSlotIndex[face];
        if (index >= count32(slot) && index != 0) {
            --index;
            faces.push_back(count32(face));
        }
    }
    return faces;
}

void putSlotBack(FrameRecord& frame, std::size_t slot, std::int32_t material,
                 std::span<const std::int32_t> faces) {
    MeshRecord& mesh = frame.Mesh;
    mesh.ListRevision.surfaceChanged();
    mesh.MaterialSlotList.insert(at(mesh.MaterialSlotList, slot), material);
    for (const std::int32_t face : faces) {
        if (static_cast<std::size_t>(face) < mesh.FaceSlotIndex.size()) {
            ++mesh.FaceSlotIndex[static_cast<std::size_t>(face)];
        }
    }
}

/// What an entry keeps while it is out of the model.
RemovedParts& kept(EditData& data) {
    auto* parts = std::get_if<std::unique_ptr<RemovedParts>>(&data);
    if (parts == nullptr || *parts == nullptr) {
        data = std::make_unique<RemovedParts>();
        parts = std::get_if<std::unique_ptr<RemovedParts>>(&data);
    }
    return **parts;
}

/// Moves materials of the entry into the table at a place, or so many back into the entry.
void moveMaterials(EditStep& step, std::size_t first, std::size_t count) {
    std::vector<MaterialRecord>& table = step.document.Materials;
    std::vector<MaterialRecord>& outside = kept(step.action.after).materials;
    if (step.forward) {
        table.insert(at(table, first), std::move_iterator(outside.begin()),
                     std::move_iterator(outside.end()));
        outside.clear();
    } else {
        outside.assign(std::move_iterator(at(table, first)),
                       std::move_iterator(at(table, first + count)));
        table.erase(at(table, first), at(table, first + count));
    }
}

/// Puts a frame among the children of the step's frame.
void insertFrame(const EditStep& step, std::size_t position, FrameRecord frame) {
    FrameRecord& parent = *step.frame;
    const auto place = parent.Children.insert(at(parent.Children, position), std::move(frame));
    ModelDocument::refreshPaths(parent, position);
    const SelectState state =
        parent.SelectState == SelectState::Other ? SelectState::Other : SelectState::Descendant;
    for (FrameWalk walk(*place); !walk.done(); walk.next()) {
        walk.frame().SelectState = state;
        walk.frame().TreeNode = -1; // of a tree that is no longer shown
    }
}

/// Takes the child at a position out of the step's frame; none if there is none.
std::vector<FrameRecord> takeFrame(const EditStep& step, std::size_t position) {
    std::vector<FrameRecord> taken;
    std::vector<FrameRecord>& children = step.frame->Children;
    if (position < children.size()) {
        taken.push_back(std::move(children[position]));
        children.erase(at(children, position));
        ModelDocument::refreshPaths(*step.frame, position);
    }
    return taken;
}

/// What stepDeleteMaterial notes about a slot that it takes away.
struct SlotNote {
    std::span<const std::int32_t> frame; ///< child numbers
    std::size_t slot;
    std::span<const std::int32_t> faces;
};

void noteSlot(EditAction& action, std::span<const std::int32_t> frame, std::size_t slot,
              const std::vector<std::int32_t>& faces) {
    std::vector<std::int32_t>& notes = action.path;
    notes.push_back(count32(frame.size()));
    notes.insert(notes.end(), frame.begin(), frame.end());
    notes.insert(notes.end(), {0, count32(slot), count32(faces.size())});
    notes.insert(notes.end(), faces.begin(), faces.end());
    ++action.index;
}

/// Reads the notes back.
std::vector<SlotNote> slotNotes(const EditAction& action) {
    std::vector<SlotNote> notes;
    std::span<const std::int32_t> rest = std::span(action.path).subspan(1);
    for (std::uint32_t i = 0; i < action.index; ++i) {
        const auto depth = static_cast<std::size_t>(rest[0]);
        const auto faces = static_cast<std::size_t>(rest[depth + 3]);
        notes.push_back({rest.subspan(1, depth), static_cast<std::size_t>(rest[depth + 2]),
                         rest.subspan(depth + 4, faces)});
        rest = rest.subspan(depth + 4 + faces);
    }
    return notes;
}

/// Also in meshes that are switched off: they may be switched on again.
void takeMaterial(EditStep& step, std::int32_t material) {
    step.action.path.resize(1);
    step.action.index = 0;
    for (FrameWalk walk(step.document.Root); !walk.done(); walk.next()) {
        std::vector<std::int32_t>& slots = walk.frame().Mesh.MaterialSlotList;
        for (std::size_t slot = 0; slot < slots.size();) {
            if (slots[slot] == material) {
                noteSlot(step.action, walk.childNumbers(), slot, takeSlot(walk.frame(), slot));
                continue;
            }
            slots[slot] -= slots[slot] > material ? 1 : 0;
            ++slot;
        }
    }
    std::vector<MaterialRecord>& table = step.document.Materials;
    const auto place = at(table, static_cast<std::size_t>(material));
    kept(step.action.before)
        .materials.assign(std::move_iterator(place), std::move_iterator(place + 1));
    table.erase(place);
}

void putMaterialBack(EditStep& step, std::int32_t material) {
    std::vector<MaterialRecord>& table = step.document.Materials;
    std::vector<MaterialRecord>& outside = kept(step.action.before).materials;
    table.insert(at(table, static_cast<std::size_t>(material)), std::move_iterator(outside.begin()),
                 std::move_iterator(outside.end()));
    step.action.before = {};
    for (FrameWalk walk(step.document.Root); !walk.done(); walk.next()) {
        for (std::int32_t& slot : walk.frame().Mesh.MaterialSlotList) {
            slot += slot >= material ? 1 : 0;
        }
    }
    // the last slot taken goes back first: a mesh may have had several of the material
    const std::vector<SlotNote> notes = slotNotes(step.action);
    for (auto note = notes.rbegin(); note != notes.rend(); ++note) {
        if (FrameRecord* frame = frameAt(step.document.Root, note->frame)) {
            putSlotBack(*frame, note->slot, material, note->faces);
        }
    }
}

} // namespace

void stepAppendSlot(EditStep& step) {
    std::vector<std::int32_t>& slots = step.frame->Mesh.MaterialSlotList;
    const auto* material = std::get_if<std::int32_t>(&step.action.after);
    step.frame->Mesh.ListRevision.surfaceChanged(); // faces without an entry have the last slot
    if (step.forward && material != nullptr) {
        slots.push_back(*material);
    } else if (!step.forward && !slots.empty()) {
        slots.pop_back();
    }
}

void stepRemoveSlot(EditStep& step) {
    MeshRecord& mesh = step.frame->Mesh;
    std::int32_t* numbers = &step.action.path[step.action.index + 1];
    const auto slot = static_cast<std::size_t>(numbers[1]);
    if (!step.forward) {
        if (const auto* faces = step.value<std::vector<std::int32_t>>()) {
            putSlotBack(*step.frame, slot, numbers[2], *faces);
        }
    } else if (slot < mesh.MaterialSlotList.size()) {
        numbers[2] = mesh.MaterialSlotList[slot];
        std::vector<std::int32_t> faces = takeSlot(*step.frame, slot);
        numbers[0] = count32(faces.size());
        step.action.before = std::move(faces);
    }
}

void stepAddMeshMaterial(EditStep& step) {
    stepAppendSlot(step);
    stepAddMaterial(step);
}

void stepAddMaterial(EditStep& step) {
    std::vector<MaterialRecord>& table = step.document.Materials;
    if (step.forward) {
        table.emplace_back(); // made anew also by redo, deliberately
    } else if (!table.empty()) {
        table.pop_back();
    }
}

void stepDeleteMaterial(EditStep& step) {
    const std::int32_t material = step.action.path[0];
    if (!step.forward) {
        putMaterialBack(step, material);
    } else if (static_cast<std::size_t>(material) < step.document.Materials.size()) {
        takeMaterial(step, material);
    }
}

void stepAddFrame(EditStep& step) {
    const auto position = static_cast<std::size_t>(step.numbers()[0]);
    if (!step.forward) {
        takeFrame(step, position);
    } else if (const auto* name = step.value<std::string>()) {
        FrameRecord frame;
        frame.Name = *name;
        insertFrame(step, position, std::move(frame));
    }
}

void stepDeleteFrame(EditStep& step) {
    const auto position = static_cast<std::size_t>(step.numbers()[0]);
    std::vector<FrameRecord>& outside = kept(step.action.after).frames;
    if (step.forward) {
        outside = takeFrame(step, position);
    } else if (!outside.empty()) {
        insertFrame(step, position, std::move(outside.front()));
        outside.clear();
    }
}

void stepPasteMaterials(EditStep& step) {
    moveMaterials(step, step.action.index, static_cast<std::size_t>(step.action.path[0]));
}

void stepPasteMeshMaterials(EditStep& step) {
    const std::span<const std::int32_t> numbers = step.numbers();
    const auto count = static_cast<std::size_t>(numbers[0]);
    const auto firstSlot = static_cast<std::size_t>(numbers[2]);
    moveMaterials(step, static_cast<std::size_t>(numbers[1]), count);
    step.frame->Mesh.ListRevision.surfaceChanged();
    std::vector<std::int32_t>& slots = step.frame->Mesh.MaterialSlotList;
    for (std::size_t i = 0; step.forward && i < count; ++i) {
        slots.insert(at(slots, firstSlot + i), numbers[1] + count32(i));
    }
    if (!step.forward) {
        slots.erase(at(slots, firstSlot), at(slots, firstSlot + count));
    }
}

void stepPasteFrame(EditStep& step) {
    const std::span<const std::int32_t> numbers = step.numbers();
    moveMaterials(step, static_cast<std::size_t>(numbers[1]), static_cast<std::size_t>(numbers[0]));
    std::vector<FrameRecord>& outside = kept(step.action.after).frames;
    const std::size_t children = step.frame->Children.size();
    if (!step.forward) {
        outside = children == 0 ? std::vector<FrameRecord>() : takeFrame(step, children - 1);
    } else if (!outside.empty()) {
        insertFrame(step, children, std::move(outside.front()));
        outside.clear();
    }
}

} // namespace korvane
