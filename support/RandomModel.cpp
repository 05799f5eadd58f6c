#include "support/RandomModel.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <random>
#include <utility>

namespace korvane::test {

NumberSource seededNumbers(std::uint32_t seed) {
    return [random = std::mt19937(seed)](int least, int most) mutable {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
}

ModelDocument RandomModel::make() {
    ModelDocument document;
    materials_ = number(any_ ? 0 : 1, 6);
    for (int i = 0; i < materials_; ++i) {
        document.Materials.push_back(material());
    }
    document.Root = frame(0);
    return document;
}

float RandomModel::real() {
    return any_ ? oddReal() : savableReal();
}

/// Mostly everyday numbers, sometimes any finite one; with six digits, as files keep them.
float RandomModel::savableReal() {
    if (chance(70)) {
        return static_cast<float>(number(-100000, 100000)) / 1000.0F;
    }
    for (;;) {
        using Limits = std::numeric_limits<int>;
        const auto bits = static_cast<std::uint32_t>(number(Limits::min(), Limits::max()));
        auto value = std::bit_cast<float>(bits);
        if (std::isfinite(value)) {
            std::array<char, 20> text{};
            std::to_chars(text.begin(), text.end(), value, std::chars_format::general, 6);
            std::from_chars(text.begin(), text.end(), value);
            return value;
        }
    }
}

/// Mostly everyday numbers, sometimes unexpected ones.
float RandomModel::oddReal() {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr std::array odd = {std::numeric_limits<float>::quiet_NaN(),
                                infinity,
                                -infinity,
                                3e38F,
                                -3e38F,
                                1e16F,
                                1e-38F,
                                -0.0F,
                                0.25F,
                                5000.0F};
    const auto kind = static_cast<std::size_t>(number(0, 40));
    return kind < odd.size() ? odd[kind] : static_cast<float>(number(-1000, 1000)) / 100;
}

template <class Element, class Make>
void RandomModel::fill(std::vector<Element>& list, int most, Make make) {
    for (int i = number(0, most); i > 0; --i) {
        list.push_back(make());
    }
}

FrameRecord RandomModel::frame(int depth) {
    FrameRecord frame;
    // made of the letters of flag suffixes, on purpose
    frame.Name = "ehg" + std::string(static_cast<std::size_t>(number(0, 1)), '_') +
                 std::to_string(frames_++);
    for (std::size_t k = 0; k < 16; ++k) {
        // through arbitrary matrices, views see little
        frame.Matrix[k] = any_ && chance(90) ? frame.Matrix[k] : real();
    }
    frame.HasMesh = chance(80);
    if (frame.HasMesh || any_) {
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
    if (any_) {
        addViewState(frame);
    }
    for (int i = depth < deepest_ ? number(0, 3) : 0; i > 0; --i) {
        frame.Children.push_back(this->frame(depth + 1));
    }
    return frame;
}

void RandomModel::addViewState(FrameRecord& frame) {
    frame.SelectState = static_cast<SelectState>(number(0, 2));
    for (auto& flag : frame.ViewFlags) {
        flag = chance(87);
    }
}

MeshRecord RandomModel::mesh() {
    MeshRecord mesh;
    const auto vec3 = [this] { return this->vec3(); };
    fill(mesh.Vertices, 12, vec3);
    const auto faces = static_cast<std::size_t>(number(0, any_ ? 12 : 8));
    mesh.Faces = polygons(faces, mesh.Vertices.size());
    // lists that are switched off are not saved
    const auto has = [this](bool& flag, int percent) {
        flag = chance(percent);
        return flag || any_;
    };
    // one polygon for each face; in odd models, often with the corners of the faces
    const auto along = [&](std::size_t elements) {
        return any_ && chance(50) ? mesh.Faces : polygons(faces, elements);
    };
    if (has(mesh.HasMaterials, 60)) {
        fill(mesh.MaterialSlotList, 4,
             [this] { return any_ ? number(-1, 4) : number(0, materials_ - 1); });
        for (std::size_t i = any_ ? static_cast<std::size_t>(number(0, 3)) : 0; i < faces; ++i) {
            mesh.FaceSlotIndex.push_back(number(-1, 4));
        }
    }
    if (has(mesh.HasNormals, 60)) {
        fill(mesh.Normals, 5, vec3);
        mesh.NormalFaces = along(mesh.Normals.size());
    }
    if (has(mesh.HasTexCoords, 60)) {
        fill(mesh.TexCoords, 5, [this] { return Vec2{real(), real()}; });
        mesh.TexCoordFaces = along(mesh.TexCoords.size());
    }
    if (has(mesh.HasVertexColors, 30)) {
        fill(mesh.VertexColors, 5, [this] { return ColorRGBA{real(), real(), real(), real()}; });
        mesh.VertexColorFaces = along(mesh.VertexColors.size());
    }
    return mesh;
}

MaterialRecord RandomModel::material() {
    MaterialRecord material;
    const ColorRGB face = color();
    material.FaceColor = {face.red, face.green, face.blue, any_ && chance(50) ? 1.0F : real()};
    material.Power = real();
    material.Specular = color();
    material.Emissive = color();
    material.Ambient = color();
    if (chance(50)) {
        addTexture(material);
    }
    material.ShadingModel = material.HasTexture ? 2 : 1;
    return material;
}

/// Texture names have characters that mean something elsewhere in a file; some names are repeated.
void RandomModel::addTexture(MaterialRecord& material) {
    constexpr std::array forms = {"Dir\\Skin {%} Frame.tga", "MESH%.BMP", "si_material__%",
                                  "  % ;;,.pic", "gr\xc3\xbc\xdf%.ICO"};
    material.HasTexture = true;
    material.TextureFile = forms[static_cast<std::size_t>(number(0, 4))];
    material.TextureFile.replace(material.TextureFile.find('%'), 1, std::to_string(number(1, 9)));
    if (any_) {
        auto image = std::make_shared<TextureImage>();
        image->width = number(1, 5);
        image->height = number(1, 5);
        image->pixels.resize(static_cast<std::size_t>(image->width * image->height));
        image->HasAlpha = chance(50);
        image->pixels[0] = {9, 99, 199, static_cast<std::uint8_t>(number(0, 255))};
        material.TextureImage = std::move(image);
    }
}

/// Indices are arbitrary; in odd models, most are valid. Savable polygons are not empty.
PolygonList RandomModel::polygons(std::size_t faces, std::size_t elements) {
    PolygonList list;
    const int least = any_ ? -1 : -2;
    const int most = any_ ? static_cast<int>(elements) + 1 : 40;
    for (std::size_t i = 0; i < faces; ++i) {
        const int corners = chance(5) ? 40 : number(any_ ? 0 : 1, 6);
        for (std::uint32_t& corner : list.openCorners(static_cast<std::size_t>(corners))) {
            corner = static_cast<std::uint32_t>(number(least, most));
        }
        list.closePolygon();
    }
    return list;
}

std::vector<AnimationKeyRecord> RandomModel::keys() {
    std::vector<AnimationKeyRecord> keys;
    fill(keys, 5, [this] {
        AnimationKeyRecord key;
        key.Time = number(-10, 10000);
        for (int v = number(1, 12); v > 0; --v) {
            key.Values.push_back(real());
        }
        return key;
    });
    return keys;
}

} // namespace korvane::test
