#include "edit/session/MaterialEditing.h"

#include "edit/history/MaterialEdits.h"
#include "edit/history/SlotEdits.h"
#include "edit/materials/MaterialValues.h"
#include "edit/materials/TextureViewText.h"
#include "render/scene/DrawMaterials.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace korvane {

MaterialEditing::MaterialEditing(ModelDocument& model, EditHistory& history,
                                 MaterialSubject subject)
    : model_(model), history_(history), subject_(std::move(subject)) {
    if (!ofMesh()) {
        table_.MaterialSlotList.resize(model_.Materials.size());
        std::iota(table_.MaterialSlotList.begin(), table_.MaterialSlotList.end(), 0);
    }
    editedMesh().CurrentSlot = subject_.slot;
    startValues();
}

// What to show

const FrameRecord* MaterialEditing::frame() const {
    return subject_.frame ? frameAt(model_.Root, *subject_.frame) : nullptr;
}

const MeshRecord& MaterialEditing::mesh() const {
    // looked up each time, as frames may move; a missing frame counts as one without materials
    const FrameRecord* found = frame();
    return found != nullptr ? found->Mesh : table_;
}

MeshRecord& MaterialEditing::editedMesh() {
    FrameRecord* found = subject_.frame ? frameAt(model_.Root, *subject_.frame) : nullptr;
    return found != nullptr ? found->Mesh : table_;
}

std::optional<std::size_t> MaterialEditing::currentMaterial() const {
    const auto slot = static_cast<std::size_t>(currentSlot());
    if (slot >= slots().size()) {
        return std::nullopt;
    }
    const auto material = static_cast<std::size_t>(slots()[slot]);
    return material < model_.Materials.size() ? std::optional(material) : std::nullopt;
}

const MaterialRecord& MaterialEditing::material() const {
    static const MaterialRecord none;
    const std::optional<std::size_t> current = currentMaterial();
    return current ? model_.Materials[*current] : none;
}

std::vector<bool> MaterialEditing::usedMaterials() const {
    std::vector<bool> used(model_.Materials.size());
    for (const std::int32_t material : slots()) {
        if (static_cast<std::size_t>(material) < used.size()) {
            used[static_cast<std::size_t>(material)] = true;
        }
    }
    return used;
}

std::optional<std::size_t> MaterialEditing::materialOf(std::size_t face) const {
    const auto slot = static_cast<std::size_t>(slotOfFace(mesh(), face));
    if (slot >= slots().size()) {
        return std::nullopt;
    }
    const auto material = static_cast<std::size_t>(slots()[slot]);
    return material < model_.Materials.size() ? std::optional(material) : std::nullopt;
}

std::vector<std::size_t> MaterialEditing::facesOfCurrent() const {
    std::vector<std::size_t> found;
    const std::optional<std::size_t> current = currentMaterial();
    for (std::size_t face = 0; current && face < mesh().Faces.size(); ++face) {
        if (materialOf(face) == current) {
            found.push_back(face);
        }
    }
    return found;
}

QString MaterialEditing::faceText(const std::optional<FacePart>& selected) const {
    if (!selected || selected->face >= mesh().Faces.size()) {
        return {};
    }
    const std::optional<std::size_t> material = materialOf(selected->face);
    return material ? QStringLiteral("Shows Material %1").arg(*material + 1)
                    : QStringLiteral("Shows no material");
}

QString MaterialEditing::textureSentence(const std::optional<FacePart>& selected) const {
    QString text = currentMaterial() ? QStringLiteral("The texture %1 with the faces over it")
                                           .arg(withoutFolder(material().TextureFile))
                                     : QStringLiteral("The faces of the mesh, without a material");
    if (selected) {
        text += QStringLiteral("; face %1 is selected").arg(selected->face + 1);
    }
    return text + u'.';
}

std::optional<std::int32_t> MaterialEditing::onlyMaterial() const {
    // several slots of one material count as one
    const bool one = !slots().empty() && std::count(slots().begin(), slots().end(),
                                                    slots().front()) == std::ssize(slots());
    return one ? std::optional(slots().front()) : std::nullopt;
}

// What the user does

void MaterialEditing::startValues() {
    const MaterialRecord& shown = material();
    shininess_ = currentMaterial() ? powerText(shown.Power) : std::string();
    pendingOpacity_.start(shown.FaceColor.alpha);
    pendingShininess_.start(shininess_, shown.Power);
}

void MaterialEditing::commitOpacity() {
    if (const auto current = currentMaterial()) {
        pendingOpacity_.commit(history_, model_, *current);
    }
}

void MaterialEditing::commitShininess() {
    if (const auto current = currentMaterial()) {
        pendingShininess_.commit(history_, model_, *current, shininess_);
    }
}

Changes MaterialEditing::commit() {
    const Changes changes = cancelDrag();
    commitOpacity();
    commitShininess();
    return changes;
}

Changes MaterialEditing::changedLive() {
    ++model_.Revision;
    return {.materials = true};
}

std::optional<MaterialQuestion> MaterialEditing::ask() const {
    const std::optional<std::size_t> current = currentMaterial();
    return current ? std::optional(MaterialQuestion{*current, model_.Revision}) : std::nullopt;
}

bool MaterialEditing::stillCurrent(const MaterialQuestion& question) const {
    return model_.Revision == question.revision && currentMaterial() == question.material;
}

Changes MaterialEditing::setColor(const MaterialQuestion& question, MaterialColor color,
                                  const ColorRGB& value) {
    if (!stillCurrent(question)) {
        return {};
    }
    switch (color) {
    case MaterialColor::Ambient:
        setAmbient(history_, model_, question.material, value);
        break;
    case MaterialColor::Diffuse:
        setFaceColor(history_, model_, question.material, value);
        break;
    case MaterialColor::Specular:
        setSpecular(history_, model_, question.material, value);
        break;
    }
    return {.materials = true};
}

Changes MaterialEditing::setTexture(const MaterialQuestion& question, std::string name,
                                    std::shared_ptr<const TextureImage> image) {
    if (!stillCurrent(question)) {
        return {};
    }
    setTextureFile(history_, model_, question.material, std::move(name), std::move(image));
    return {.materials = true};
}

Changes MaterialEditing::setTextureOn(bool on) {
    Changes changes = commit();
    const std::optional<std::size_t> current = currentMaterial();
    if (current && model_.Materials[*current].HasTexture != on) {
        korvane::setTextureOn(history_, model_, *current, on);
        changes.materials = true;
    }
    return changes;
}

Changes MaterialEditing::moveOpacity(std::int32_t position) {
    const std::optional<std::size_t> current = currentMaterial();
    if (!current) {
        return {};
    }
    const Changes cancelled = cancelDrag();
    commitShininess();
    model_.Materials[*current].FaceColor.alpha = opacityAt(position);
    pendingOpacity_.change();
    return cancelled | changedLive();
}

ShininessOutcome MaterialEditing::typeShininess(const std::string& text) {
    const std::optional<std::size_t> current = currentMaterial();
    if (!current) {
        return {};
    }
    const Changes cancelled = cancelDrag();
    commitOpacity();
    shininess_ = text;
    pendingShininess_.change();
    const std::optional<float> power = powerOf(text);
    if (!power) {
        return {true, cancelled};
    }
    model_.Materials[*current].Power = *power;
    return {false, cancelled | changedLive()};
}

Changes MaterialEditing::chooseSlot(std::int32_t slot, std::optional<FacePart> selected) {
    Changes changes = commit();
    if (static_cast<std::size_t>(slot) >= slots().size()) {
        return changes;
    }
    if (selected && ofMesh()) {
        setFaceSlot(history_, model_, *subject_.frame, static_cast<std::int32_t>(selected->face),
                    slot);
        changes.materials = true;
    }
    editedMesh().CurrentSlot = slot;
    startValues();
    return changes;
}

Changes MaterialEditing::useMaterials(const std::vector<bool>& wanted) {
    Changes changes = commit();
    if (!ofMesh()) {
        return changes;
    }
    const std::vector<bool> used = usedMaterials();
    for (std::size_t material = 0; material < std::min(used.size(), wanted.size()); ++material) {
        if (wanted[material] == used[material]) {
            continue;
        }
        slotsChanged_ = true;
        if (wanted[material]) {
            appendSlot(history_, model_, *subject_.frame, static_cast<std::int32_t>(material));
        } else if (onlyMaterial() == static_cast<std::int32_t>(material)) {
            continue; // a mesh must keep one
        } else {
            removeSlots(material);
        }
        changes.materials = true;
    }
    startValues();
    return changes;
}

void MaterialEditing::removeSlots(std::size_t material) {
    for (std::size_t slot = 0; slot < slots().size();) {
        if (static_cast<std::size_t>(slots()[slot]) != material) {
            ++slot;
            continue;
        }
        removeSlot(history_, model_, *subject_.frame, static_cast<std::int32_t>(slot));
        // the current slot moves like the slots of faces
        std::int32_t& current = editedMesh().CurrentSlot;
        current -= current >= static_cast<std::int32_t>(slot) && current != 0 ? 1 : 0;
    }
}

// The mouse in the texture view

Changes MaterialEditing::beginDrag(const DragInput& input, const TexCoordView& view,
                                   std::optional<FacePart> selected) {
    // the history cannot refer to a mesh outside the model
    if (input.button != DragButton::Left || frame() == nullptr || !mesh().HasTexCoords) {
        return {};
    }
    const Changes changes = commit();
    if (selected) {
        drag_.begin(input, view, mesh(), *selected);
    }
    return changes;
}

Changes MaterialEditing::moveDrag(const DragInput& input, const TexCoordView& view) {
    return drag_.update(input, view, editedMesh()) ? texCoordsMoved() : Changes();
}

Changes MaterialEditing::endDrag(const DragInput& input, const TexCoordView& view) {
    if (!drag_.active() || input.button != DragButton::Left) {
        return {};
    }
    drag_.update(input, view, editedMesh());
    const MovedTexCoords moved = drag_.moved(mesh());
    // only then end the drag: if memory runs out it can still be cancelled
    recordTexCoords(history_, model_, *subject_.frame, moved.numbers, moved.before, moved.after);
    drag_.end();
    return texCoordsMoved();
}

Changes MaterialEditing::cancelDrag() {
    return drag_.cancel(editedMesh()) ? texCoordsMoved() : Changes();
}

Changes MaterialEditing::texCoordsMoved() {
    editedMesh().ListRevision.surfaceChanged();
    ++model_.LiveChanges; // the history records the drag when it ends
    return {.materials = true};
}

bool MaterialEditing::dragMoves() const {
    if (!drag_.active()) {
        return false;
    }
    const MovedTexCoords moved = drag_.moved(mesh());
    return moved.before != moved.after;
}

Changes MaterialEditing::end() {
    return commit() | Changes{.tree = slotsChanged_, .geometry = true};
}

} // namespace korvane
