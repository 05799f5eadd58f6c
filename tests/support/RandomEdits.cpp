#include "support/RandomEdits.h"

#include "edit/history/MaterialEdits.h"
#include "edit/history/PasteEdits.h"
#include "edit/history/SlotEdits.h"
#include "edit/history/StructureEdits.h"
#include "model/records/FrameWalk.h"

#include <utility>

namespace korvane::test {

std::size_t RandomEdits::anyMaterial() {
    return static_cast<std::size_t>(number(0, static_cast<int>(document_.Materials.size())));
}

FramePath RandomEdits::anyFrame() {
    std::vector<FramePath> paths;
    for (FrameWalk walk(document_.Root); !walk.done(); walk.next()) {
        paths.push_back(walk.frame().Path);
    }
    return paths[static_cast<std::size_t>(number(0, static_cast<int>(paths.size()) - 1))];
}

std::vector<MaterialRecord> RandomEdits::someMaterials() {
    std::vector<MaterialRecord> materials(static_cast<std::size_t>(number(0, 3)));
    for (MaterialRecord& material : materials) {
        material.Power = real();
    }
    return materials;
}

RandomEdits::Edit RandomEdits::ofMaterial(EditKind kind) {
    const std::size_t material = anyMaterial();
    const bool exists = material < document_.Materials.size();
    MaterialRecord none;
    MaterialRecord& target = exists ? document_.Materials[material] : none;
    const ColorRGB chosen = color();
    const auto setColor = [=, this](auto set) {
        return [=, this] { set(history_, document_, material, chosen); };
    };
    switch (kind) {
    case EditKind::TextureFile:
        return [=, this, name = std::to_string(number(0, 9)) + " and some more letters.tga"] {
            setTextureFile(history_, document_, material, name);
        };
    case EditKind::Ambient:
        return setColor(setAmbient);
    case EditKind::FaceColor:
        return setColor(setFaceColor);
    case EditKind::Specular:
        return setColor(setSpecular);
    case EditKind::Emissive:
        return setColor(setEmissive);
    case EditKind::Opacity: {
        const float before = std::exchange(target.FaceColor.alpha, real());
        return [=, this, after = target.FaceColor.alpha] {
            recordOpacity(history_, document_, material, before, after);
        };
    }
    case EditKind::Power: {
        const float before = std::exchange(target.Power, real());
        return [=, this, after = target.Power] {
            recordPower(history_, document_, material, before, after);
        };
    }
    case EditKind::TextureOn:
        return
            [=, this, on = number(0, 1) == 1] { setTextureOn(history_, document_, material, on); };
    default:
        return [=, this] { deleteMaterial(history_, document_, material); };
    }
}

RandomEdits::Edit RandomEdits::texCoordDrag(const FramePath& path) {
    std::vector<Vec2>& coordinates = frameAt(document_.Root, path)->Mesh.TexCoords;
    std::vector<std::int32_t> numbers;
    std::vector<Vec2> before;
    std::vector<Vec2> after;
    for (std::size_t i = 0; i < coordinates.size(); ++i) {
        if (number(0, 2) == 0) {
            numbers.push_back(static_cast<std::int32_t>(i));
            before.push_back(std::exchange(coordinates[i], {real(), real()}));
            after.push_back(coordinates[i]);
        }
    }
    return [=, this] { recordTexCoords(history_, document_, path, numbers, before, after); };
}

RandomEdits::Edit RandomEdits::ofFrame(EditKind kind) {
    const FramePath path = anyFrame();
    FrameRecord& frame = *frameAt(document_.Root, path);
    const auto slots = static_cast<int>(frame.Mesh.MaterialSlotList.size());
    switch (kind) {
    case EditKind::TexCoords:
        return texCoordDrag(path);
    case EditKind::FaceSlot:
        return [=, this, face = number(0, 5), slot = number(0, 5)] {
            setFaceSlot(history_, document_, path, face, slot);
        };
    case EditKind::AppendSlot:
        return [=, this, material = static_cast<std::int32_t>(anyMaterial())] {
            appendSlot(history_, document_, path, material);
        };
    case EditKind::RemoveSlot:
        return [=, this, slot = number(0, slots)] { removeSlot(history_, document_, path, slot); };
    case EditKind::AddMeshMaterial:
        return [=, this] { addMeshMaterial(history_, document_, path); };
    case EditKind::MoveFrame: {
        const Matrix4 before = frame.Matrix;
        frame.Matrix[12] += real();
        return [=, this, after = frame.Matrix] {
            recordMove(history_, document_, path, before, after);
        };
    }
    case EditKind::RenameFrame:
        return [=, this, name = "a long name " + std::to_string(number(0, 99))] {
            renameFrame(history_, document_, path, name);
        };
    case EditKind::AddFrame:
        return [=, this] { addFrame(history_, document_, path, ""); };
    case EditKind::DeleteFrame:
        return [=, this] { deleteFrame(history_, document_, path); };
    case EditKind::FrameOptions: {
        const FrameFlags before = frameFlags(frame);
        frame.GFlag = !frame.GFlag;
        frame.Mesh.HasNormals = number(0, 1) == 1;
        frame.HasMesh = number(0, 9) != 0;
        return [=, this] { recordFrameOptions(history_, document_, path, before); };
    }
    case EditKind::PasteMeshMaterials:
        return [=, this, materials = someMaterials()] {
            pasteMeshMaterials(history_, document_, path, materials);
        };
    default: {
        FrameRecord pasted;
        pasted.Name = frame.Name;
        pasted.HasMesh = frame.HasMesh;
        pasted.Mesh = frame.Mesh;
        if (frame.Children.size() == 1) { // whole trees would quickly fill the model
            pasted.Children = frame.Children;
        }
        return [=, this, materials = someMaterials()] {
            pasteFrame(history_, document_, path, pasted, materials);
        };
    }
    }
}

RandomEdits::Edit RandomEdits::prepare(EditKind kind) {
    if (kind == EditKind::AddMaterial) {
        return [this] { addMaterial(history_, document_); };
    }
    if (kind == EditKind::PasteMaterials) {
        return
            [this, materials = someMaterials()] { pasteMaterials(history_, document_, materials); };
    }
    const bool ofMaterials =
        kind <= EditKind::TextureOn || kind == EditKind::Power || kind == EditKind::DeleteMaterial;
    return ofMaterials ? ofMaterial(kind) : ofFrame(kind);
}

} // namespace korvane::test
