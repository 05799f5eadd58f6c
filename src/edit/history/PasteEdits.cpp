#include "edit/history/PasteEdits.h"

#include "edit/history/EditSteps.h"
#include "model/document/ChildFrames.h"
#include "model/records/FrameWalk.h"
#include "model/records/ListRoom.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

namespace korvane {

namespace {

// so moves into a list that has room cannot fail
static_assert(std::is_nothrow_move_constructible_v<MaterialRecord> &&
              std::is_nothrow_move_assignable_v<MaterialRecord>);

// Undo moves the pasted parts to the entry's `after`.

struct MeshMaterials {
    std::int32_t materials = 0; ///< how many
    std::int32_t firstMaterial = 0;
    std::int32_t firstSlot = 0;
};

struct FrameMaterials {
    std::int32_t materials = 0; ///< how many
    std::int32_t firstMaterial = 0;
};

/// The pasted materials in the table.
struct Part {
    std::size_t first;
    std::size_t count;
};

Part partOf(std::int32_t first, std::int32_t count) {
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(count)};
}

/// PasteMaterials keeps the first one in the entry's `index` and the count in its path.
Part materialsOf(const EditAction& action) {
    return {action.index, static_cast<std::size_t>(action.path[0])};
}

/// Moves materials into the table, which must have room for them.
void putMaterials(std::vector<MaterialRecord>& table, std::size_t first,
                  std::vector<MaterialRecord>& materials) {
    table.insert(placeIn(table, first), std::move_iterator(materials.begin()),
                 std::move_iterator(materials.end()));
}

/// Makes parts with room for that many materials.
std::unique_ptr<RemovedParts> roomFor(std::size_t materials) {
    auto parts = std::make_unique<RemovedParts>();
    parts->materials.reserve(materials);
    return parts;
}

/// Moves materials from the table into the entry.
void takeMaterials(EditStep& step, const Part& part, std::unique_ptr<RemovedParts> parts) {
    std::vector<MaterialRecord>& table = step.document.Materials;
    const auto begin = placeIn(table, part.first);
    const auto end = placeIn(table, part.first + part.count);
    parts->materials.assign(std::move_iterator(begin), std::move_iterator(end));
    table.erase(begin, end);
    step.action.after = std::move(parts);
}

void stepPasteMaterials(EditStep& step) {
    const Part part = materialsOf(step.action);
    if (!step.forward) {
        takeMaterials(step, part, roomFor(part.count));
    } else if (RemovedParts* parts = keptParts(step.action.after)) {
        reserveMore(step.document.Materials, parts->materials.size());
        putMaterials(step.document.Materials, part.first, parts->materials);
        step.action.after = {};
    }
}

void stepPasteMeshMaterials(EditStep& step) {
    const auto numbers = step.numbers<MeshMaterials>();
    const Part inTable = partOf(numbers.firstMaterial, numbers.materials);
    const auto firstSlot = static_cast<std::size_t>(numbers.firstSlot);
    std::vector<std::int32_t>& slots = step.frame->Mesh.MaterialSlotList;
    if (!step.forward) {
        takeMaterials(step, inTable, roomFor(inTable.count));
        slots.erase(placeIn(slots, firstSlot), placeIn(slots, firstSlot + inTable.count));
    } else if (RemovedParts* parts = keptParts(step.action.after)) {
        reserveMore(step.document.Materials, parts->materials.size());
        reserveMore(slots, inTable.count);
        putMaterials(step.document.Materials, inTable.first, parts->materials);
        for (std::size_t i = 0; i < inTable.count; ++i) {
            slots.insert(placeIn(slots, firstSlot + i), count32(inTable.first + i));
        }
        step.action.after = {};
    }
    step.frame->Mesh.ListRevision.surfaceChanged();
}

void stepPasteFrame(EditStep& step) {
    const auto numbers = step.numbers<FrameMaterials>();
    const Part inTable = partOf(numbers.firstMaterial, numbers.materials);
    const std::size_t children = step.frame->Children.size();
    if (!step.forward) {
        std::unique_ptr<RemovedParts> parts = roomFor(inTable.count);
        if (children > 0) {
            takeChild(*step.frame, children - 1, parts->frames);
        }
        takeMaterials(step, inTable, std::move(parts));
    } else if (RemovedParts* parts = keptParts(step.action.after);
               parts != nullptr && !parts->frames.empty()) {
        reserveMore(step.document.Materials, parts->materials.size());
        insertChild(*step.frame, children, parts->frames.front());
        putMaterials(step.document.Materials, inTable.first, parts->materials);
        step.action.after = {};
    }
}

constexpr std::array<EditKindRow, 3> rows = {{
    {EditKind::PasteMaterials, "paste materials", false, refresh::materialsAndTree,
     stepPasteMaterials},
    {EditKind::PasteMeshMaterials, "paste materials into mesh", true, refresh::materialsAndTree,
     stepPasteMeshMaterials},
    {EditKind::PasteFrame, "paste frame", true, refresh::everything, stepPasteFrame},
}};

std::size_t deepest(const FrameRecord& top) {
    std::size_t depth = 0;
    for (FrameWalk walk(top); !walk.done(); walk.next()) {
        depth = std::max(depth, walk.depth());
    }
    return depth;
}

} // namespace

std::span<const EditKindRow> pasteKinds() {
    return rows;
}

void pasteMaterials(EditHistory& history, ModelDocument& document,
                    std::vector<MaterialRecord> materials) {
    EditAction action = materialAction(EditKind::PasteMaterials, document.Materials.size());
    action.path = {count32(materials.size())};
    auto parts = std::make_unique<RemovedParts>();
    parts->materials = std::move(materials);
    action.after = std::move(parts);
    history.record(document, std::move(action));
}

void pasteMeshMaterials(EditHistory& history, ModelDocument& document, const FramePath& frame,
                        std::vector<MaterialRecord> materials) {
    const FrameRecord* target = frameAt(document.Root, frame);
    if (target == nullptr) {
        return;
    }
    const MeshMaterials numbers = {count32(materials.size()), count32(document.Materials.size()),
                                   count32(target->Mesh.MaterialSlotList.size())};
    EditAction action = frameAction(EditKind::PasteMeshMaterials, frame, plainNumbers(numbers));
    auto parts = std::make_unique<RemovedParts>();
    parts->materials = std::move(materials);
    action.after = std::move(parts);
    history.record(document, std::move(action));
}

void pasteFrame(EditHistory& history, ModelDocument& document, const FramePath& parent,
                FrameRecord frame, std::vector<MaterialRecord> materials) {
    if (frameAt(document.Root, parent) == nullptr ||
        parent.depth() + 1 + deepest(frame) > maxFrameDepth) {
        return;
    }
    const FrameMaterials numbers = {count32(materials.size()), count32(document.Materials.size())};
    EditAction action = frameAction(EditKind::PasteFrame, parent, plainNumbers(numbers));
    auto parts = std::make_unique<RemovedParts>();
    parts->materials = std::move(materials);
    parts->frames.push_back(std::move(frame));
    action.after = std::move(parts);
    history.record(document, std::move(action));
}

} // namespace korvane
