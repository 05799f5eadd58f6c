#include "support/RandomModel.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace korvane::test {

ModelDocument RandomModel::make() {
    table_.clear();
    for (int i = number(1, 6); i > 0; --i) {
        table_.push_back(material());
    }
    ModelDocument document;
    document.Root = frame(0);
    document.Materials = table_;
    return document;
}

/// Everyday numbers mostly, anything finite now and then; with six digits, as files keep them.
float RandomModel::real() {
    if (chance(70)) {
        return static_cast<float>(number(-100000, 100000)) / 1000.0F;
    }
    for (;;) {
        auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random_()));
        if (std::isfinite(value)) {
            std::array<char, 20> text{};
            std::to_chars(text.begin(), text.end(), value, std::chars_format::general, 6);
            std::from_chars(text.begin(), text.end(), value);
            return value;
        }
    }
}

ColorRGB RandomModel::color() {
    return {real(), real(), chance(50) ? 0.0F : real()};
}

FrameRecord RandomModel::frame(int depth) {
    FrameRecord frame;
    // of the four letters a flag suffix is made of, on purpose
    frame.Name = "ehg" + std::string(static_cast<std::size_t>(number(0, 1)), '_') +
                 std::to_string(frames_++);
    for (std::size_t k = 0; k < 16; ++k) {
        frame.Matrix[k] = real();
    }
    if (chance(80)) {
        frame.HasMesh = true;
        frame.Mesh = mesh();
        frame.Emissive = chance(30);
        frame.RenderBackwards = chance(30);
        frame.KV2Animated = chance(30);
        frame.GFlag = chance(30);
        if (chance(40)) {
            frame.HasAnimation = true;
            frame.AnimationKeyType = number(0, 4);
            frame.AnimationKeys = keys();
        }
    }
    for (int i = depth < deepest_ ? number(0, 3) : 0; i > 0; --i) {
        frame.Children.push_back(this->frame(depth + 1));
    }
    return frame;
}

MeshRecord RandomModel::mesh() {
    MeshRecord mesh;
    for (int i = number(0, 12); i > 0; --i) {
        mesh.Vertices.push_back(vec3());
    }
    const auto faces = static_cast<std::size_t>(number(0, 8));
    mesh.Faces = polygons(faces);
    if (chance(60)) {
        mesh.HasMaterials = true;
        for (int i = number(0, 4); i > 0; --i) {
            mesh.MaterialSlotList.push_back(number(0, static_cast<int>(table_.size()) - 1));
        }
        for (std::size_t i = 0; i < faces; ++i) {
            mesh.FaceSlotIndex.push_back(number(-1, 4));
        }
    }
    if (chance(60)) {
        mesh.HasNormals = true;
        for (int i = number(0, 5); i > 0; --i) {
            mesh.Normals.push_back(vec3());
        }
        mesh.NormalFaces = polygons(faces);
    }
    if (chance(60)) {
        mesh.HasTexCoords = true;
        for (int i = number(0, 5); i > 0; --i) {
            mesh.TexCoords.push_back({real(), real()});
        }
        mesh.TexCoordFaces = polygons(faces);
    }
    if (chance(30)) {
        mesh.HasVertexColors = true;
        for (int i = number(0, 5); i > 0; --i) {
            mesh.VertexColors.push_back({real(), real(), real(), real()});
        }
        mesh.VertexColorFaces = polygons(faces);
    }
    return mesh;
}

MaterialRecord RandomModel::material() {
    MaterialRecord material;
    const ColorRGB face = color();
    material.FaceColor = {face.red, face.green, face.blue, real()};
    material.Power = real();
    material.Specular = color();
    material.Emissive = color();
    material.Ambient = color();
    material.ShadingModel = 2;
    material.HasTexture = chance(50);
    material.TextureFile = material.HasTexture ? textureName() : "";
    return material;
}

/// Of characters that mean something elsewhere in a file; some names come more than once.
std::string RandomModel::textureName() {
    const char* const forms[] = {"Dir\\Skin {%} Frame.tga", "MESH%.BMP", "si_material__%",
                                 "  % ;;,.pic", "gr\xc3\xbc\xdf%.ICO"};
    std::string name = forms[number(0, 4)];
    return name.replace(name.find('%'), 1, std::to_string(number(1, 9)));
}

/// No empty polygon, but any index.
PolygonList RandomModel::polygons(std::size_t count) {
    PolygonList list;
    for (std::size_t i = 0; i < count; ++i) {
        const int corners = chance(5) ? 40 : number(1, 6);
        for (std::uint32_t& corner : list.openCorners(static_cast<std::size_t>(corners))) {
            corner = static_cast<std::uint32_t>(number(-2, 40));
        }
        list.closePolygon();
    }
    return list;
}

std::vector<AnimationKeyRecord> RandomModel::keys() {
    std::vector<AnimationKeyRecord> keys;
    for (int i = number(0, 5); i > 0; --i) {
        AnimationKeyRecord& key = keys.emplace_back();
        key.Time = number(-10, 10000);
        for (int v = number(1, 12); v > 0; --v) {
            key.Values.push_back(real());
        }
    }
    return keys;
}

} // namespace korvane::test
