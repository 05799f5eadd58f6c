#include "support/TextModel.h"

#include <fstream>
#include <iterator>
#include <string>

namespace korvane {
namespace {

using test::writeText;

/// Returns a root without a mesh and two children, the first with everything a frame can have.
ModelDocument fullExample() {
    ModelDocument document;
    document.Root.Name = "root";
    document.Root.Emissive = true; // a frame without a mesh carries no suffix
    document.Root.Children.resize(2);
    FrameRecord& frame = document.Root.Children[0];
    frame.Name = "a";
    frame.HasMesh = frame.Emissive = frame.RenderBackwards = frame.HasBasePose = true;
    frame.KV2Animated = frame.GFlag = true;
    frame.BasePose[12] = 0.1F;
    MeshRecord& mesh = frame.Mesh;
    mesh.Vertices = {{0, 0.5F, 1.0F / 3}, {-1e-7F, 1234567, 1e-5F}};
    const std::uint32_t face[] = {0, 1, 0xFFFFFFFFU};
    const std::uint32_t other[] = {1};
    mesh.Faces.push_back(face);
    mesh.Faces.push_back(other);
    mesh.HasMaterials = mesh.HasNormals = mesh.HasTexCoords = mesh.HasVertexColors = true;
    mesh.FaceSlotIndex = {0, 1};
    mesh.MaterialSlotList = {0};
    mesh.Normals = {{0, 0, 1}};
    mesh.TexCoords = {{0.25F, 0.75F}};
    mesh.VertexColors = {{1, 0.5F, 0, 0.25F}};
    mesh.NormalFaces = mesh.TexCoordFaces = mesh.Faces;
    frame.HasAnimation = true;
    frame.AnimationKeyType = 3;
    frame.AnimationKeys = {{0, {1, 2.5F}}, {-5, {3}}};
    document.Root.Children[1].HasAnimation = true; // no mesh: not written
    MaterialRecord& material = document.Materials.emplace_back();
    material.FaceColor = {0.2F, 0.6F, 0, 1};
    material.HasTexture = true;
    material.TextureFile = "Skin.tga";
    return document;
}

TEST(XsiWriter, EveryPartOfAFile) {
    std::ifstream file(KORVANE_TESTS "/formats/xsi/every-part.xsi", std::ios::binary);
    const std::string expected{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(writeText(fullExample()), expected);
}

TEST(XsiWriter, OddModelsAreWrittenWithoutLookingBeyondTheirLists) {
    ModelDocument document = fullExample();
    document.Root.Children[0].Mesh.MaterialSlotList = {7, -1};
    const std::string text = writeText(document);
    EXPECT_NE(text.find("0.75;0.75;0.75;1;;"), std::string::npos); // a new material's colour
    document.Root.Children[0].Mesh = MeshRecord();
    EXPECT_NE(writeText(document).find("Mesh a__e2hg {\n         0;\n\n         0;\n      }\n"),
              std::string::npos);
}

TEST(XsiWriter, StopsWhenTheSinkDoes) {
    ModelDocument document;
    document.Root.HasMesh = true;
    document.Root.Mesh.Vertices.resize(200000);
    std::size_t pieces = 0;
    EXPECT_FALSE(writeXsi(document, [&pieces](std::string_view) { return ++pieces < 2; }));
    EXPECT_EQ(pieces, 2U);
}

} // namespace
} // namespace korvane
