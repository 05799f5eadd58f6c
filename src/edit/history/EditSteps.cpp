#include "edit/history/EditSteps.h"

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
    step.frame->Mesh.ListRevision.surfaceChanged();
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
    step.frame->Mesh.ListRevision.surfaceChanged();
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
    {EditKind::TextureFile, "choose texture", false, materials, stepTextureFile},
    {EditKind::Ambient, "change ambient color", false, materials,
     stepColor<&MaterialRecord::Ambient>},
    {EditKind::FaceColor, "change diffuse color", false, materials, stepFaceColor},
    {EditKind::Specular, "change specular color", false, materials,
     stepColor<&MaterialRecord::Specular>},
    {EditKind::Emissive, "change emissive color", false, materials,
     stepColor<&MaterialRecord::Emissive>},
    {EditKind::Opacity, "change opacity", false, materials, stepOpacity},
    {EditKind::TextureOn, "switch texture on or off", false, materials, stepTextureOn},
    {EditKind::TexCoords, "move texture coordinates", true, materials, stepTexCoords},
    {EditKind::FaceSlot, "change material of a face", true, materials, stepFaceSlot},
    {EditKind::AppendSlot, "add material to mesh", true, materialsAndTree, stepAppendSlot},
    {EditKind::RemoveSlot, "take material from mesh", true, materialsAndTree, stepRemoveSlot},
    {EditKind::AddMeshMaterial, "add material to mesh", true, materialsAndTree,
     stepAddMeshMaterial},
    {EditKind::AddMaterial, "add material", false, materialsAndTree, stepAddMaterial},
    {EditKind::DeleteMaterial, "delete material", false, materialsAndTree, stepDeleteMaterial},
    {EditKind::MoveFrame, "move or rotate frame", true, geometry, stepMoveFrame},
    {EditKind::RenameFrame, "rename frame", true, tree, stepRenameFrame},
    {EditKind::AddFrame, "add frame", true, everything, stepAddFrame},
    {EditKind::DeleteFrame, "delete frame", true, everything, stepDeleteFrame},
    {EditKind::FrameOptions, "change frame options", true, everything, stepFrameOptions},
    {EditKind::Power, "change shininess", false, materials, stepPower},
    {EditKind::PasteMaterials, "paste materials", false, materialsAndTree, stepPasteMaterials},
    {EditKind::PasteMeshMaterials, "paste materials into mesh", true, materialsAndTree,
     stepPasteMeshMaterials},
    {EditKind::PasteFrame, "paste frame", true, everything, stepPasteFrame},
}};

} // namespace

const EditKindRow* editKindRow(EditKind kind) {
    const auto number = static_cast<std::size_t>(kind);
    return number >= 1 && number <= rows.size() ? &rows[number - 1] : nullptr;
}

} // namespace korvane
