#include "model/document/ModelCounts.h"
#include "model/document/StructureTree.h"
#include "model/records/FrameWalk.h"
#include "tool/Commands.h"

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

namespace korvane::tool {

namespace {

/// What a node's line says beyond its text.
std::string counts(NodeKind kind, const FrameRecord& frame, const ModelDocument& document) {
    const MeshRecord& mesh = frame.Mesh;
    switch (kind) {
    case NodeKind::Mesh:
        return counted(mesh.Vertices.size(), "vertex", "vertices") + ", " +
               counted(mesh.Faces.size(), "face", "faces");
    case NodeKind::MeshMaterialList:
        return counted(mesh.MaterialSlotList.size(), "material", "materials") + ", " +
               counted(mesh.FaceSlotIndex.size(), "face", "faces");
    case NodeKind::MeshNormals:
        return counted(mesh.Normals.size(), "normal", "normals") + ", " +
               counted(mesh.NormalFaces.size(), "face", "faces");
    case NodeKind::MaterialTable:
        return counted(document.Materials.size(), "material", "materials");
    case NodeKind::Frame:
        return frame.HasAnimation
                   ? counted(frame.AnimationKeys.size(), "animation key", "animation keys")
                   : std::string();
    case NodeKind::TableMaterial:
    case NodeKind::MaterialSlot:
    case NodeKind::None:
        break;
    }
    return {};
}

void printTree(ModelDocument& document) {
    const StructureTree tree(document);
    std::vector<std::size_t> depths;
    FrameWalk walk(document.Root);
    const FrameRecord* frame = &document.Root; // the frame that the current node belongs to
    for (const StructureNode& node : tree.nodes()) {
        if (node.kind == NodeKind::Frame) {
            frame = &walk.frame();
            walk.next();
        }
        depths.push_back(node.parent < 0 ? 0 : depths[static_cast<std::size_t>(node.parent)] + 1);
        std::string line(3 * depths.back(), ' ');
        line += printable(node.text);
        const std::string extra = counts(node.kind, *frame, document);
        line += extra.empty() ? "\n" : " (" + extra + ")\n";
        std::fwrite(line.data(), 1, line.size(), stdout);
    }
}

} // namespace

ExitStatus info(const QStringList& words) {
    if (words.isEmpty()) {
        return wrongCall(QStringLiteral("info needs a file"));
    }
    ExitStatus worst = ExitStatus::Done;
    for (const QString& file : words) {
        ModelDocument document;
        if (!open(file, document)) {
            worst = ExitStatus::Refused;
            continue;
        }
        const ModelCounts found = countModel(document.Root);
        std::printf("%s: %s, %s, %s\n", printable(file).c_str(),
                    counted(found.meshes, "mesh", "meshes").c_str(),
                    counted(found.vertices, "vertex", "vertices").c_str(),
                    counted(found.faces, "face", "faces").c_str());
        printTree(document);
    }
    return worst;
}

} // namespace korvane::tool
