#include "support/TextModel.h"

#include <algorithm>
#include <vector>

namespace korvane {
namespace {

using test::readMeshBody;

constexpr std::string_view oneFace = "1;\n0;0;0;;\n1;\n3;0,0,0;;\n";

std::string dotXsi(std::string_view face, std::string_view more = "") {
    return "SI_Material {\n" + std::string(face) +
           ";1;;\n20;\n0.1;0.2;0.3;;\n0;0;0;;\n2;\n0.5;0.25;0;;\n" + std::string(more) + "}\n";
}

std::string directX(std::string_view face, std::string_view more = "") {
    return "Material Red {\n" + std::string(face) + ";1;;\n20;\n0.1;0.2;0.3;;\n0;0;0;;\n" +
           std::string(more) + "}\n";
}

ModelDocument readMaterials(int count, const std::string& materials) {
    return readMeshBody(std::string(oneFace) + "MeshMaterialList {\n" + std::to_string(count) +
                        ";\n1;\n0;\n" + materials + "}\nMeshNormals {\n1;\n0;0;1;;\n0;\n}\n");
}

/// Expects that all after the material list was read, so that the list ended where it should.
void expectReadOn(const ModelDocument& document) {
    EXPECT_TRUE(document.Root.Mesh.HasNormals);
    EXPECT_EQ(document.Root.Mesh.Normals.size(), 1U);
}

TEST(Materials, ReadsBothKinds) {
    const ModelDocument document = readMaterials(
        2, dotXsi("0.2;0.4;0.6", "SI_Texture2D {\n \"C:/maps/sub\\Skin.TGA\";\n 4;\n}\n") +
               directX("0.5;0.5;0.5", "TextureFilename {\n\"b.bmp\";\n}\n"));
    ASSERT_EQ(document.Materials.size(), 2U);
    EXPECT_EQ(document.Root.Mesh.MaterialSlotList, (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(document.Root.Mesh.FaceSlotIndex, (std::vector<std::int32_t>{0}));
    const MaterialRecord& xsi = document.Materials[0];
    EXPECT_EQ(xsi.FaceColor, (ColorRGBA{0.2F, 0.4F, 0.6F, 1}));
    EXPECT_EQ(xsi.Power, 20);
    EXPECT_EQ(xsi.Specular, (ColorRGB{0.1F, 0.2F, 0.3F}));
    EXPECT_EQ(xsi.Ambient, (ColorRGB{0.5F, 0.25F, 0}));
    EXPECT_TRUE(xsi.HasTexture);
    EXPECT_EQ(xsi.TextureFile, "sub\\Skin.TGA"); // case and backslashes stay
    EXPECT_EQ(xsi.MappingType, 4);
    const MaterialRecord& x = document.Materials[1];
    EXPECT_EQ(x.ShadingModel, 2);
    EXPECT_EQ(x.Ambient, ColorRGB());
    EXPECT_EQ(x.TextureFile, "b.bmp");
    ASSERT_NE(x.TextureImage, nullptr);
    EXPECT_EQ(x.TextureImage->width, 1);
    expectReadOn(document);
}

TEST(Materials, TakeTheirSlots) {
    const std::string texture = "TextureFilename {\n\"a.bmp\";\n}\n";
    const struct {
        int count;
        std::string materials;
        std::vector<std::int32_t> slots;
    } rows[] = {
        // equal ones are merged
        {6,
         directX("1;1;1") + directX("1;1;0.5") + directX("1;1;1") + directX("1;1;1", texture) +
             directX("1;1;1", texture) + directX("1;1;1", "TextureFilename {\n\"A.bmp\";\n}\n"),
         {0, 1, 0, 2, 2, 3}},
        // references take no slot
        {5,
         directX("1;0;0") + " { some material }\n{frame}\n{ name } // remark\n" + directX("0;1;0"),
         {0, 1}},
        // a line with further braces is none
        {2, directX("1;0;0") + "{ name } {\n" + directX("0;1;0"), {0, 1}},
        // the braces of unknown blocks are counted
        {2,
         directX("1;0;0", "EffectInstance {\n \"x\";\n Param { 1; }\n Deep {\n }\n}\n") +
             directX("0;1;0"),
         {0, 1}},
    };
    for (const auto& row : rows) {
        const ModelDocument document = readMaterials(row.count, row.materials);
        EXPECT_EQ(document.Root.Mesh.MaterialSlotList, row.slots) << row.materials;
        EXPECT_EQ(static_cast<std::int32_t>(document.Materials.size()),
                  *std::max_element(row.slots.begin(), row.slots.end()) + 1);
        expectReadOn(document);
    }
}

TEST(Materials, WhatCountsForEquality) {
    MaterialRecord a;
    const auto same = [&a](auto&& change) {
        MaterialRecord b;
        change(b);
        const bool equal = sameMaterial(a, b);
        EXPECT_TRUE(!equal || materialHash(a) == materialHash(b));
        return equal;
    };
    EXPECT_TRUE(same([](MaterialRecord& b) { b.ShadingModel = 7; }));
    EXPECT_TRUE(same([](MaterialRecord& b) { b.TextureFile = "unused"; }));
    EXPECT_TRUE(same([](MaterialRecord& b) { b.Emissive.red = -0.0F; }));
    EXPECT_FALSE(same([](MaterialRecord& b) { b.FaceColor.alpha = 0.5F; }));
    EXPECT_FALSE(same([](MaterialRecord& b) { b.Ambient.blue = 0.5F; }));
    EXPECT_FALSE(same([](MaterialRecord& b) { b.Power = 1; }));
    EXPECT_FALSE(same([](MaterialRecord& b) { b.HasTexture = true; }));
    a.HasTexture = true;
    a.TextureFile = "x";
    EXPECT_FALSE(same([](MaterialRecord& b) { b.HasTexture = true; }));
}

} // namespace
} // namespace korvane
