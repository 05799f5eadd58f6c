#include "support/RandomEdits.h"

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

void RandomEdits::editMaterial(EditKind kind) {
    const std::size_t material = anyMaterial();
    const bool exists = material < document_.Materials.size();
    MaterialRecord none;
    MaterialRecord& target = exists ? document_.Materials[material] : none;
    switch (kind) {
    case EditKind::TextureFile:
        return history_.textureFile(document_, material, std::to_string(number(0, 9)) + ".tga");
    case EditKind::Ambient:
        return history_.ambient(document_, material, color());
    case EditKind::FaceColor:
        return history_.faceColor(document_, material, color());
    case EditKind::Specular:
        return history_.specular(document_, material, color());
    case EditKind::Emissive:
        return history_.emissive(document_, material, color());
    case EditKind::Opacity: {
        const float before = std::exchange(target.FaceColor.alpha, real());
        return history_.opacity(document_, material, before, target.FaceColor.alpha);
    }
    case EditKind::Power: {
        const float before = std::exchange(target.Power, real());
        return history_.power(document_, material, before, target.Power);
    }
    case EditKind::TextureOn:
        return history_.textureOn(document_, material, number(0, 1) == 1);
    default:
        return history_.deleteMaterial(document_, material);
    }
}

void RandomEdits::dragTexCoords(const FramePath& path) {
    std::vector<Vec2>& coordinates = frameAt(document_.Root, path.childNumbers())->Mesh.TexCoords;
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
    history_.texCoords(document_, path, numbers, std::move(before), std::move(after));
}

void RandomEdits::editFrame(EditKind kind) {
    const FramePath path = anyFrame();
    FrameRecord& frame = *frameAt(document_.Root, path.childNumbers());
    const auto slots = static_cast<int>(frame.Mesh.MaterialSlotList.size());
    switch (kind) {
    case EditKind::TexCoords:
        return dragTexCoords(path);
    case EditKind::FaceSlot:
        return history_.faceSlot(document_, path, number(0, 5), number(0, 5));
    case EditKind::AppendSlot:
        return history_.appendSlot(document_, path, static_cast<std::int32_t>(anyMaterial()));
    case EditKind::RemoveSlot:
        return history_.removeSlot(document_, path, number(0, slots));
    case EditKind::AddMeshMaterial:
        return history_.addMeshMaterial(document_, path);
    case EditKind::MoveFrame: {
        const Matrix4 before = frame.Matrix;
        frame.Matrix[12] += real();
        return history_.moveFrame(document_, path, before, frame.Matrix);
    }
    case EditKind::RenameFrame:
        return history_.renameFrame(document_, path, "n" + std::to_string(number(0, 99)));
    case EditKind::AddFrame:
        return history_.addFrame(document_, path, "");
    case EditKind::DeleteFrame:
        return history_.deleteFrame(document_, path);
    case EditKind::FrameOptions: {
        const FrameFlags before = frameFlags(frame);
        frame.GFlag = !frame.GFlag;
        frame.Mesh.HasNormals = number(0, 1) == 1;
        frame.HasMesh = number(0, 9) != 0;
        return history_.frameOptions(document_, path, before);
    }
    case EditKind::PasteMeshMaterials:
        return history_.pasteMeshMaterials(document_, path, someMaterials());
    default: {
        FrameRecord pasted;
        pasted.Name = frame.Name;
        pasted.HasMesh = frame.HasMesh;
        pasted.Mesh = frame.Mesh;
        if (frame.Children.size() == 1) { // whole trees would soon fill the model
            pasted.Children = frame.Children;
        }
        return history_.pasteFrame(document_, path, std::move(pasted), someMaterials());
    }
    }
}

void RandomEdits::make(EditKind kind) {
    switch (kind) {
    case EditKind::AddMaterial:
        return history_.addMaterial(document_);
    case EditKind::PasteMaterials:
        return history_.pasteMaterials(document_, someMaterials());
    case EditKind::TextureFile:
    case EditKind::Ambient:
    case EditKind::FaceColor:
    case EditKind::Specular:
    case EditKind::Emissive:
    case EditKind::Opacity:
    case EditKind::TextureOn:
    case EditKind::Power:
    case EditKind::DeleteMaterial:
        return editMaterial(kind);
    default:
        return editFrame(kind);
    }
}

} // namespace korvane::test
