#include "edit/history/EditHistory.h"

#include "edit/history/EditSteps.h"
#include "model/records/FrameWalk.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// An entry about a frame, or about the children of one; further numbers follow its path.
EditAction frameAction(EditKind kind, const FramePath& frame,
                       std::span<const std::int32_t> numbers = {}) {
    EditAction action;
    action.kind = kind;
    action.index = static_cast<std::uint32_t>(frame.depth());
    action.path = frame.childNumbers();
    action.path.push_back(0);
    action.path.insert(action.path.end(), numbers.begin(), numbers.end());
    return action;
}

EditAction materialAction(EditKind kind, std::size_t material) {
    EditAction action;
    action.kind = kind;
    action.index = static_cast<std::uint32_t>(material);
    return action;
}

/// The frame that an entry of a frame kind is about, or null where it leads to none.
FrameRecord* frameOf(ModelDocument& document, const EditAction& action) {
    return frameAt(document.Root, std::span(action.path).first(action.index));
}

std::unique_ptr<RemovedParts> parts(std::vector<MaterialRecord> materials,
                                    std::vector<FrameRecord> frames = {}) {
    return std::make_unique<RemovedParts>(RemovedParts{std::move(materials), std::move(frames)});
}

std::size_t deepest(const FrameRecord& top) {
    std::size_t depth = 0;
    for (FrameWalk walk(top); !walk.done(); walk.next()) {
        depth = std::max(depth, walk.depth());
    }
    return depth;
}

} // namespace

RefreshFlags EditHistory::step(ModelDocument& document, EditAction& action, bool forward,
                               const TextureSource& textures) {
    document.Modified = true;
    ++document.Revision;
    const EditKindRow* row = editKindRow(action.kind);
    if (row == nullptr) {
        return {};
    }
    EditStep step = {document, action, textures, forward};
    if (row->ofFrame) {
        step.frame = frameOf(document, action);
        if (step.frame == nullptr) {
            return {};
        }
    }
    row->run(step);
    return row->refresh;
}

void EditHistory::record(ModelDocument& document, EditAction action,
                         const TextureSource& textures) {
    entries_.resize(static_cast<std::size_t>(std::int64_t{position_} + 1));
    // room first: a change that has been made must not be without its entry
    entries_.emplace_back();
    try {
        step(document, action, true, textures);
    } catch (...) {
        entries_.pop_back();
        throw;
    }
    entries_.back() = std::move(action);
    ++position_;
}

std::string_view EditHistory::undoName() const {
    return canUndo() ? nameOf(position_) : std::string_view();
}

std::string_view EditHistory::redoName() const {
    return canRedo() ? nameOf(position_ + 1) : std::string_view();
}

std::string_view EditHistory::nameOf(std::int32_t entry) const {
    const EditKindRow* row = editKindRow(entries_[static_cast<std::size_t>(entry)].kind);
    return row != nullptr ? row->name : std::string_view();
}

RefreshFlags EditHistory::undo(ModelDocument& document) {
    if (!canUndo()) {
        return {};
    }
    EditAction& action = entries_[static_cast<std::size_t>(position_)];
    const RefreshFlags refresh = step(document, action, false, textures_);
    --position_;
    selectFrameOf(document, action);
    return refresh;
}

RefreshFlags EditHistory::redo(ModelDocument& document) {
    if (!canRedo()) {
        return {};
    }
    EditAction& action = entries_[static_cast<std::size_t>(std::int64_t{position_} + 1)];
    const RefreshFlags refresh = step(document, action, true, textures_);
    ++position_;
    selectFrameOf(document, action);
    return refresh;
}

void EditHistory::selectFrameOf(ModelDocument& document, const EditAction& action) {
    const EditKindRow* row = editKindRow(action.kind);
    if (row != nullptr && row->ofFrame && frameOf(document, action) != nullptr) {
        document.selectFrame(FramePath(std::span(action.path).first(action.index)));
    }
}

template <class Get, class Value>
void EditHistory::materialValue(ModelDocument& document, EditKind kind, std::size_t material,
                                Get before, Value after) {
    if (material < document.Materials.size()) {
        EditAction action = materialAction(kind, material);
        action.before = before(document.Materials[material]);
        action.after = std::move(after);
        record(document, std::move(action));
    }
}

template <class Value>
void EditHistory::frameValue(ModelDocument& document, EditAction action, Value before,
                             Value after) {
    if (frameOf(document, action) != nullptr) {
        action.before = std::move(before);
        action.after = std::move(after);
        record(document, std::move(action));
    }
}

void EditHistory::textureFile(ModelDocument& document, std::size_t material, std::string name,
                              std::shared_ptr<const TextureImage> image) {
    if (material >= document.Materials.size()) {
        return;
    }
    EditAction action = materialAction(EditKind::TextureFile, material);
    action.before = document.Materials[material].TextureFile;
    action.after = std::move(name);
    if (image == nullptr) {
        record(document, std::move(action));
    } else {
        record(document, std::move(action), [&image](const std::string&) { return image; });
    }
}

void EditHistory::ambient(ModelDocument& document, std::size_t material, const ColorRGB& color) {
    materialValue(
        document, EditKind::Ambient, material, [](const auto& m) { return m.Ambient; }, color);
}

void EditHistory::faceColor(ModelDocument& document, std::size_t material, const ColorRGB& color) {
    const auto withoutAlpha = [](const MaterialRecord& m) {
        return ColorRGB{m.FaceColor.red, m.FaceColor.green, m.FaceColor.blue};
    };
    materialValue(document, EditKind::FaceColor, material, withoutAlpha, color);
}

void EditHistory::specular(ModelDocument& document, std::size_t material, const ColorRGB& color) {
    materialValue(
        document, EditKind::Specular, material, [](const auto& m) { return m.Specular; }, color);
}

void EditHistory::emissive(ModelDocument& document, std::size_t material, const ColorRGB& color) {
    materialValue(
        document, EditKind::Emissive, material, [](const auto& m) { return m.Emissive; }, color);
}

void EditHistory::opacity(ModelDocument& document, std::size_t material, float before,
                          float after) {
    materialValue(
        document, EditKind::Opacity, material, [before](const auto&) { return before; }, after);
}

void EditHistory::power(ModelDocument& document, std::size_t material, float before, float after) {
    materialValue(
        document, EditKind::Power, material, [before](const auto&) { return before; }, after);
}

void EditHistory::textureOn(ModelDocument& document, std::size_t material, bool on) {
    materialValue(
        document, EditKind::TextureOn, material, [](const auto& m) { return m.HasTexture; }, on);
}

void EditHistory::texCoords(ModelDocument& document, const FramePath& frame,
                            std::span<const std::int32_t> numbers, std::vector<Vec2> before,
                            std::vector<Vec2> after) {
    std::vector<std::int32_t> extras = {count32(numbers.size())};
    extras.insert(extras.end(), numbers.begin(), numbers.end());
    frameValue(document, frameAction(EditKind::TexCoords, frame, extras), std::move(before),
               std::move(after));
}

void EditHistory::faceSlot(ModelDocument& document, const FramePath& frame, std::int32_t face,
                           std::int32_t slot) {
    const FrameRecord* target = frameAt(document.Root, frame);
    const auto number = static_cast<std::size_t>(face);
    if (target == nullptr) {
        return;
    }
    const std::vector<std::int32_t>& slots = target->Mesh.FaceSlotIndex;
    if (number < slots.size()) {
        frameValue(document, frameAction(EditKind::FaceSlot, frame, {{face}}), slots[number], slot);
    } else if (number < target->Mesh.Faces.size()) {
        frameValue<EditData>(
            document, frameAction(EditKind::FaceSlot, frame, {{face, count32(slots.size())}}), {},
            slot);
    }
}

void EditHistory::appendSlot(ModelDocument& document, const FramePath& frame,
                             std::int32_t material) {
    frameValue<EditData>(document, frameAction(EditKind::AppendSlot, frame), {}, material);
}

void EditHistory::removeSlot(ModelDocument& document, const FramePath& frame, std::int32_t slot) {
    const FrameRecord* target = frameAt(document.Root, frame);
    if (target != nullptr &&
        static_cast<std::size_t>(slot) < target->Mesh.MaterialSlotList.size()) {
        const std::int32_t extras[] = {0, slot, 0};
        record(document, frameAction(EditKind::RemoveSlot, frame, extras));
    }
}

void EditHistory::addMeshMaterial(ModelDocument& document, const FramePath& frame) {
    frameValue<EditData>(document, frameAction(EditKind::AddMeshMaterial, frame), {},
                         count32(document.Materials.size()));
}

void EditHistory::addMaterial(ModelDocument& document) {
    record(document, materialAction(EditKind::AddMaterial, 0));
}

void EditHistory::deleteMaterial(ModelDocument& document, std::size_t material) {
    if (material < document.Materials.size()) {
        EditAction action = materialAction(EditKind::DeleteMaterial, 0);
        action.path = {count32(material)};
        record(document, std::move(action));
    }
}

void EditHistory::moveFrame(ModelDocument& document, const FramePath& frame, const Matrix4& before,
                            const Matrix4& after) {
    frameValue(document, frameAction(EditKind::MoveFrame, frame), before, after);
}

void EditHistory::renameFrame(ModelDocument& document, const FramePath& frame, std::string name) {
    if (const FrameRecord* target = frameAt(document.Root, frame)) {
        frameValue(document, frameAction(EditKind::RenameFrame, frame), target->Name,
                   std::move(name));
    }
}

void EditHistory::addFrame(ModelDocument& document, const FramePath& parent, std::string name) {
    const FrameRecord* target = frameAt(document.Root, parent);
    if (target != nullptr && parent.depth() < maxFrameDepth) {
        frameValue<EditData>(
            document, frameAction(EditKind::AddFrame, parent, {{count32(target->Children.size())}}),
            {}, std::move(name));
    }
}

void EditHistory::deleteFrame(ModelDocument& document, const FramePath& frame) {
    std::vector<std::int32_t> numbers = frame.childNumbers();
    if (numbers.empty() || frameAt(document.Root, numbers) == nullptr) {
        return;
    }
    const std::int32_t position = numbers.back() - 1;
    numbers.pop_back();
    const FramePath parent(numbers);
    record(document, frameAction(EditKind::DeleteFrame, parent, {{position}}));
    document.selectFrame(parent);
}

void EditHistory::frameOptions(ModelDocument& document, const FramePath& frame,
                               const FrameFlags& before) {
    if (const FrameRecord* target = frameAt(document.Root, frame)) {
        frameValue(document, frameAction(EditKind::FrameOptions, frame), before,
                   frameFlags(*target));
    }
}

void EditHistory::pasteMaterials(ModelDocument& document, std::vector<MaterialRecord> materials) {
    EditAction action = materialAction(EditKind::PasteMaterials, document.Materials.size());
    action.path = {count32(materials.size())};
    action.after = parts(std::move(materials));
    record(document, std::move(action));
}

void EditHistory::pasteMeshMaterials(ModelDocument& document, const FramePath& frame,
                                     std::vector<MaterialRecord> materials) {
    if (const FrameRecord* target = frameAt(document.Root, frame)) {
        const std::int32_t extras[] = {count32(materials.size()),
                                       count32(document.Materials.size()),
                                       count32(target->Mesh.MaterialSlotList.size())};
        frameValue<EditData>(document, frameAction(EditKind::PasteMeshMaterials, frame, extras), {},
                             parts(std::move(materials)));
    }
}

void EditHistory::pasteFrame(ModelDocument& document, const FramePath& parent, FrameRecord frame,
                             std::vector<MaterialRecord> materials) {
    if (parent.depth() + 1 + deepest(frame) > maxFrameDepth) {
        return;
    }
    const std::int32_t extras[] = {count32(materials.size()), count32(document.Materials.size())};
    std::vector<FrameRecord> frames;
    frames.push_back(std::move(frame));
    frameValue<EditData>(document, frameAction(EditKind::PasteFrame, parent, extras), {},
                         parts(std::move(materials), std::move(frames)));
}

} // namespace korvane
