#include "edit/EditSteps.h"

#include <algorithm>
#include <array>
#include <string>

namespace korvane {

namespace {

/// Writes a value into a place of the material.
template <class Value, class Place>
void writeMaterial(const EditStep& step, Place place) {
    const Value* value = step.value<Value>();
    MaterialRecord* material = step.material();
    if (value != nullptr && material != nullptr) {
        place(*material) = *value;
    }
}

void stepTextureFile(EditStep& step) {
    const auto* name = step.value<std::string>();
    MaterialRecord* material = step.material();
    if (name != nullptr && material != nullptr) {
        material->TextureFile = *name;
        material->TextureImage = step.textures ? step.textures(*name) : blankTextureImage();
    }
}

template <ColorRGB MaterialRecord::*color>
void stepColor(EditStep& step) {
    writeMaterial<ColorRGB>(step, [](MaterialRecord& m) -> ColorRGB& { return m.*color; });
}

void stepFaceColor(EditStep& step) {
    const auto* color = step.value<ColorRGB>();
    MaterialRecord* material = step.material();
    if (color != nullptr && material != nullptr) {
        material->FaceColor = {color->red, color->green, color->blue, material->FaceColor.alpha};
    }
}

void stepOpacity(EditStep& step) {
    writeMaterial<float>(step, [](MaterialRecord& m) -> float& { return m.FaceColor.alpha; });
}

void stepPower(EditStep& step) {
    writeMaterial<float>(step, [](MaterialRecord& m) -> float& { return m.Power; });
}

void stepTextureOn(EditStep& step) {
    writeMaterial<bool>(step, [](MaterialRecord& m) -> bool& { return m.HasTexture; });
}

void stepTexCoords(EditStep& step) {
    const auto* values = step.value<std::vector<Vec2>>();
    const std::span<const std::int32_t> numbers = step.numbers().subspan(1); // behind their count
    std::vector<Vec2>& coordinates = step.frame->Mesh.TexCoords;
    for (std::size_t i = 0; values != nullptr && i < std::min(values->size(), numbers.size());
         ++i) {
        const auto number = static_cast<std::size_t>(numbers[i]);
        if (number < coordinates.size()) {
            coordinates[number] = (*values)[i];
        }
    }
    step.frame->Cache.markMeshChanged();
}

/// A face without a slot of its own gets one, and so do those before it: the last slot, which they
/// were drawn with. Undo takes these away again.
void stepFaceSlot(EditStep& step) {
    const std::span<const std::int32_t> numbers = step.numbers();
    const auto face = static_cast<std::size_t>(numbers[0]);
    MeshRecord& mesh = step.frame->Mesh;
    std::vector<std::int32_t>& slots = mesh.FaceSlotIndex;
    if (numbers.size() > 1) {
        const auto lastSlot = static_cast<std::int32_t>(mesh.MaterialSlotList.size()) - 1;
        slots.resize(step.forward ? face + 1 : static_cast<std::size_t>(numbers[1]),
                     std::max(lastSlot, 0));
    }
    const auto* slot = step.value<std::int32_t>();
    if (slot != nullptr && face < slots.size()) {
        slots[face] = *slot;
    }
    step.frame->Cache.markMeshChanged();
}

void stepMoveFrame(EditStep& step) {
    if (const auto* matrix = step.value<Matrix4>()) {
        step.frame->Matrix = *matrix;
    }
}

void stepRenameFrame(EditStep& step) {
    if (const auto* name = step.value<std::string>()) {
        step.frame->Name = *name;
    }
}

void stepFrameOptions(EditStep& step) {
    if (const auto* flags = step.value<FrameFlags>()) {
        setFrameFlags(*step.frame, *flags);
    }
}

constexpr RefreshFlags materials = {true, false, false};
constexpr RefreshFlags geometry = {true, true, false};
constexpr RefreshFlags tree = {false, false, true};
constexpr RefreshFlags materialsAndTree = {true, false, true};
constexpr RefreshFlags everything = {true, true, true};

constexpr std::array<EditKindRow, 23> rows = {{
    {EditKind::TextureFile, false, materials, stepTextureFile},
    {EditKind::Ambient, false, materials, stepColor<&MaterialRecord::Ambient>},
    {EditKind::FaceColor, false, materials, stepFaceColor},
    {EditKind::Specular, false, materials, stepColor<&MaterialRecord::Specular>},
    {EditKind::Emissive, false, materials, stepColor<&MaterialRecord::Emissive>},
    {EditKind::Opacity, false, materials, stepOpacity},
    {EditKind::TextureOn, false, materials, stepTextureOn},
    {EditKind::TexCoords, true, materials, stepTexCoords},
    {EditKind::FaceSlot, true, materials, stepFaceSlot},
    {EditKind::AppendSlot, true, materialsAndTree, stepAppendSlot},
    {EditKind::RemoveSlot, true, materialsAndTree, stepRemoveSlot},
    {EditKind::AddMeshMaterial, true, materialsAndTree, stepAddMeshMaterial},
    {EditKind::AddMaterial, false, materialsAndTree, stepAddMaterial},
    {EditKind::DeleteMaterial, false, materialsAndTree, stepDeleteMaterial},
    {EditKind::MoveFrame, true, geometry, stepMoveFrame},
    {EditKind::RenameFrame, true, tree, stepRenameFrame},
    {EditKind::AddFrame, true, everything, stepAddFrame},
    {EditKind::DeleteFrame, true, everything, stepDeleteFrame},
    {EditKind::FrameOptions, true, everything, stepFrameOptions},
    {EditKind::Power, false, materials, stepPower},
    {EditKind::PasteMaterials, false, materialsAndTree, stepPasteMaterials},
    {EditKind::PasteMeshMaterials, true, materialsAndTree, stepPasteMeshMaterials},
    {EditKind::PasteFrame, true, everything, stepPasteFrame},
}};

} // namespace

const EditKindRow* editKindRow(EditKind kind) {
    const auto number = static_cast<std::size_t>(kind);
    return number >= 1 && number <= rows.size() ? &rows[number - 1] : nullptr;
}

} // namespace korvane
