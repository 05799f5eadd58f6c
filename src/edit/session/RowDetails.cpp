#include "edit/session/RowDetails.h"

#include "edit/materials/MaterialValues.h"
#include "model/records/ModelText.h"
#include "render/scene/DrawMaterials.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <cstddef>

namespace korvane {

namespace {

QString counted(std::size_t count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

QString meshSize(const MeshRecord& mesh) {
    return QStringLiteral("mesh of %1 and %2")
        .arg(counted(mesh.Faces.size(), "face", "faces"),
             counted(mesh.Vertices.size(), "vertex", "vertices"));
}

QString frameDetails(const FrameRecord& frame) {
    QString text = frame.HasMesh ? QStringLiteral("A frame with a ") + meshSize(frame.Mesh)
                                 : QStringLiteral("A frame without a mesh");
    if (!frame.Children.empty()) {
        text += QStringLiteral("\nChild frames: %1").arg(frame.Children.size());
    }
    return text;
}

/// The number of faces that use the slot.
std::size_t facesOfSlot(const MeshRecord& mesh, std::int32_t slot) {
    std::size_t count = 0;
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        count += slotOfFace(mesh, face) == slot ? 1U : 0U;
    }
    return count;
}

const FrameRecord* frameOf(const ModelDocument& document, const NodeData& node) {
    return node.Frame ? frameAt(document.Root, *node.Frame) : nullptr;
}

/// The material that a slot or an entry of the table leads to, or null.
const MaterialRecord* materialOf(const ModelDocument& document, const NodeData& node) {
    std::int64_t number = -1;
    if (node.NodeKind == NodeKind::TableMaterial) {
        number = node.ItemIndex;
    } else if (const FrameRecord* frame = frameOf(document, node);
               frame != nullptr && node.NodeKind == NodeKind::MaterialSlot) {
        const std::vector<std::int32_t>& slots = frame->Mesh.MaterialSlotList;
        const auto slot = static_cast<std::size_t>(node.ItemIndex);
        number = slot < slots.size() ? slots[slot] : -1;
    }
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < document.Materials.size() ? &document.Materials[index] : nullptr;
}

QString textureDetails(const MaterialRecord& material, const TextureFinder& find) {
    const QString name = withoutFolder(material.TextureFile);
    QString unseen = textureViewText(material, find, name);
    if (!unseen.isEmpty()) {
        return unseen;
    }
    const auto file = find(material.TextureFile);
    return QStringLiteral("Texture %1, %2 x %3, ")
               .arg(name, QString::number(material.TextureImage->width),
                    QString::number(material.TextureImage->height)) +
           (file ? QStringLiteral("from ") +
                       QDir::toNativeSeparators(QFileInfo(*file).absoluteFilePath())
                 : QStringLiteral("whose file was not found"));
}

/// The diffuse colour as shown, as 0xrrggbb.
std::uint32_t diffuseColor(const MaterialRecord& material) {
    const auto& [red, green, blue, alpha] = material.FaceColor;
    const Rgba8 shown = shownColor({red, green, blue});
    return std::uint32_t{shown.red} << 16U | std::uint32_t{shown.green} << 8U | shown.blue;
}

QString materialDetails(const ModelDocument& document, const NodeData& node,
                        const TextureFinder& find) {
    const MaterialRecord* material = materialOf(document, node);
    if (material == nullptr) {
        return QStringLiteral("The model has no such material");
    }
    return QStringLiteral("Diffuse color #%1\nOpacity %2 %\n")
               .arg(diffuseColor(*material), 6, 16, QLatin1Char('0'))
               .arg(opacityPosition(material->FaceColor.alpha)) +
           textureDetails(*material, find);
}

/// The details of a node in a mesh.
QString meshDetails(const ModelDocument& document, const NodeData& node, const MeshRecord& mesh,
                    const TextureFinder& find) {
    switch (node.NodeKind) {
    case NodeKind::Mesh:
        return QStringLiteral("A ") + meshSize(mesh);
    case NodeKind::MeshNormals:
        return QStringLiteral("The normals of the mesh: %1").arg(mesh.Normals.size());
    case NodeKind::MeshMaterialList:
        return QStringLiteral("The materials of the mesh: %1").arg(mesh.MaterialSlotList.size());
    default:
        return QStringLiteral("A material of the mesh, on %1\n")
                   .arg(counted(facesOfSlot(mesh, node.ItemIndex), "face", "faces")) +
               materialDetails(document, node, find);
    }
}

} // namespace

QString rowDetails(const ModelDocument& document, const NodeData& node, const TextureFinder& find) {
    if (node.NodeKind == NodeKind::MaterialTable) {
        return QStringLiteral("All materials of the model: %1").arg(document.Materials.size());
    }
    if (node.NodeKind == NodeKind::TableMaterial) {
        return QStringLiteral("A material of the model\n") + materialDetails(document, node, find);
    }
    const FrameRecord* frame = frameOf(document, node);
    if (frame == nullptr) {
        return {};
    }
    return node.NodeKind == NodeKind::Frame ? frameDetails(*frame)
                                            : meshDetails(document, node, frame->Mesh, find);
}

std::optional<std::uint32_t> rowSample(const ModelDocument& document, const NodeData& node) {
    const MaterialRecord* material = materialOf(document, node);
    return material != nullptr ? std::optional(0xff000000U | diffuseColor(*material))
                               : std::nullopt;
}

} // namespace korvane
