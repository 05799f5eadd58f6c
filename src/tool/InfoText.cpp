#include "tool/InfoText.h"

#include "model/document/StructureTree.h"
#include "model/records/FrameWalk.h"
#include "tool/FileName.h"
#include "tool/ModelFacts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace korvane::tool {

namespace {

/// Returns what a node's line says beyond its text.
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
        print(line);
    }
}

/// Returns numbers as "0.5 1 -2", each in the shortest form that reads back as the same.
std::string text(std::initializer_list<float> numbers) {
    std::string line;
    for (const float number : numbers) {
        std::array<char, 32> digits{};
        char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        line.append(line.empty() ? "" : " ").append(std::string_view(digits.data(), end));
    }
    return line;
}

std::string text(const Vec3& v) {
    return text({v.x, v.y, v.z});
}

std::string text(const ColorRGB& color) {
    return text({color.red, color.green, color.blue});
}

void printBounds(const std::string& what, const Bounds& bounds) {
    if (!bounds.empty) {
        print("Bounds of " + what + ": " + text(bounds.low) + " to " + text(bounds.high) + "\n");
    }
}

void printMaterial(std::size_t number, const MaterialRecord& material,
                   const std::optional<TextureFacts>& texture) {
    const ColorRGBA& face = material.FaceColor;
    print("Material " + std::to_string(number) + ": color " +
          text({face.red, face.green, face.blue}) + ", opacity " + text({face.alpha}) + ", power " +
          text({material.Power}) + ", specular " + text(material.Specular) + ", emissive " +
          text(material.Emissive) + ", ambient " + text(material.Ambient) + ", shading model " +
          std::to_string(material.ShadingModel) + "\n");
    if (!material.HasTexture) {
        return;
    }
    std::string line = "   Texture " + printable(material.TextureFile) + ": ";
    if (!texture) {
        line += "not found";
    } else if (const TextureOutcome& outcome = texture->outcome; outcome.refusal.empty()) {
        line += printable(texture->file) + ", " + std::to_string(outcome.width) + " x " +
                std::to_string(outcome.height) + " pixels";
    } else {
        line += printable(texture->file) + ", cannot be decoded: " + outcome.refusal;
    }
    print(line + "\n");
}

void printAnimation(const FrameRecord& frame) {
    const auto& keys = frame.AnimationKeys;
    std::string line = "Animation of frm-" + printable(frame.Name) + ": type " +
                       std::to_string(frame.AnimationKeyType) + ", " +
                       counted(keys.size(), "key", "keys");
    if (!keys.empty()) {
        const auto [first, last] = std::minmax_element(
            keys.begin(), keys.end(), [](const auto& a, const auto& b) { return a.Time < b.Time; });
        line += ", times " + std::to_string(first->Time) + " to " + std::to_string(last->Time);
    }
    print(line + "\n");
}

} // namespace

void printModel(const QString& name, ModelInput& model) {
    const ModelFacts facts(model);
    print(printable(name) + ": " + counted(facts.counts.meshes, "mesh", "meshes") + ", " +
          counted(facts.counts.vertices, "vertex", "vertices") + ", " +
          counted(facts.counts.faces, "face", "faces") + "\n");
    printTree(model.document);
    printBounds("the model", facts.bounds);
    for (const FrameFacts& row : facts.frames) {
        printBounds("frm-" + printable(row.frame->Name) + " in its own space", row.bounds);
    }
    for (std::size_t i = 0; i < facts.textures.size(); ++i) {
        printMaterial(i + 1, model.document.Materials[i], facts.textures[i]);
    }
    for (const FrameFacts& row : facts.frames) {
        if (row.frame->HasAnimation) {
            printAnimation(*row.frame);
        }
    }
}

} // namespace korvane::tool
