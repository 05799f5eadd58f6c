#include "formats/xsi/FrameNames.h"
#include "support/TextModel.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace korvane {
namespace {

std::string document(const char* name) {
    std::ifstream file(std::string(KORVANE_DOCS "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The sizes of a mesh's lists: vertices and faces, slots and slots of faces, then the elements and
/// polygons of normals, coordinates and colours.
std::vector<std::size_t> sizes(const MeshRecord& mesh) {
    return {
        mesh.Vertices.size(),         mesh.Faces.size(),         mesh.MaterialSlotList.size(),
        mesh.FaceSlotIndex.size(),    mesh.Normals.size(),       mesh.NormalFaces.size(),
        mesh.TexCoords.size(),        mesh.TexCoordFaces.size(), mesh.VertexColors.size(),
        mesh.VertexColorFaces.size(),
    };
}

class FormatsPage : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(
            FileOpenXSI(QStringLiteral(KORVANE_DOCS "/formats-example.xsi"), model, {}, &notes),
            ReadStatus::Done);
        ASSERT_EQ(model.Root.Children.size(), 2U);
        ASSERT_EQ(model.Materials.size(), 4U);
    }

    ModelDocument model;
    OpenNotes notes;
};

TEST_F(FormatsPage, FramesOfTheExample) {
    const FrameRecord& sign = model.Root;
    const FrameRecord& lamp = sign.Children[0];
    const FrameRecord& vane = sign.Children[1];
    ASSERT_EQ(vane.Children.size(), 1U);
    EXPECT_EQ(sign.Name + lamp.Name + vane.Name + vane.Children[0].Name, "signlampvanetip");
    EXPECT_EQ(flagSuffix(sign) + flagSuffix(lamp) + flagSuffix(vane), "__eg__2h");
    EXPECT_EQ(lamp.Matrix, (Matrix4{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 3, 0.25F, 1}));
    EXPECT_EQ(vane.Matrix, Matrix4());

    EXPECT_FALSE(sign.HasAnimation);
    EXPECT_EQ(lamp.AnimationKeyType, 1);
    EXPECT_EQ(lamp.AnimationKeys, (std::vector<AnimationKeyRecord>{{15, {1, 1, 0.5F}}}));
    EXPECT_EQ(vane.AnimationKeyType, 2);
    EXPECT_EQ(vane.AnimationKeys,
              (std::vector<AnimationKeyRecord>{{0, {0, 0, 0}}, {60, {0, 6.25F, 0}}}));
}

TEST_F(FormatsPage, MeshesOfTheExample) {
    const MeshRecord& sign = model.Root.Mesh;
    const MeshRecord& vane = model.Root.Children[1].Mesh;
    EXPECT_EQ(sizes(sign), (std::vector<std::size_t>{5, 2, 2, 2, 2, 2, 4, 2, 2, 2}));
    EXPECT_EQ(sizes(model.Root.Children[0].Mesh),
              (std::vector<std::size_t>{3, 1, 1, 1, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(sizes(vane), (std::vector<std::size_t>{3, 1, 1, 1, 1, 1, 3, 1, 0, 0}));
    EXPECT_EQ(sign.FaceSlotIndex, (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(sign.TexCoordFaces[0].size(), 4U);
    EXPECT_EQ(sign.VertexColors[1], (ColorRGBA{0, 0, 0.5F, 0.25F}));
    EXPECT_EQ(vane.Vertices, (std::vector<Vec3>{{0, 0, 0}, {2, 0, 0}, {0, 0.15F, 0}}));
    EXPECT_EQ(vane.TexCoords, (std::vector<Vec2>{{0, 0}, {1, 0}, {0, 0.75F}})); // from below
    EXPECT_EQ(vane.TexCoordFaces, vane.Faces);
}

TEST_F(FormatsPage, MaterialsOfTheExample) {
    const MaterialRecord& board = model.Materials[0];
    EXPECT_EQ(board.Power, 40);
    EXPECT_EQ(board.Emissive, (ColorRGB{0, 0, 0.125F}));
    EXPECT_EQ(board.Ambient, (ColorRGB{0.5F, 0.5F, 0.5F}));
    EXPECT_EQ(model.Materials[1].FaceColor, (ColorRGBA{0.75F, 0.5F, 0.25F, 0.5F}));
    EXPECT_EQ(model.Materials[1].ShadingModel, 1);
    EXPECT_EQ(model.Materials[2].FaceColor, (ColorRGBA{1, 0.25F, 0, 1})); // exchanged
    EXPECT_EQ(model.Materials[3].Specular, (ColorRGB{1, 1, 1}));
    EXPECT_EQ(board.TextureFile, "..\\samples\\planks.bmp");
    EXPECT_EQ(model.Materials[3].TextureFile, "..\\samples\\stone");
    EXPECT_GT(board.TextureImage->width, 1);
    EXPECT_GT(model.Materials[3].TextureImage->width, 1);
    EXPECT_TRUE(notes.unseen.notFound.empty() && notes.unseen.notShown.empty());
}

TEST_F(FormatsPage, TheExampleSavedComesBackWithTheSameBytes) {
    const std::string saved = test::writeText(model);
    ModelDocument back = test::readText(saved);
    EXPECT_EQ(test::writeText(back), saved);
    EXPECT_EQ(back.Root.Children[1].Mesh, model.Root.Children[1].Mesh);
    EXPECT_EQ(back.Root.Children[0].AnimationKeys, model.Root.Children[0].AnimationKeys);
}

TEST_F(FormatsPage, QuotesTheExample) {
    const std::string example = document("formats-example.xsi");
    const std::string page = document("formats.md");
    constexpr std::string_view fence = "```xsi\n";
    std::size_t quotes = 0;
    for (std::size_t at = page.find(fence); at != std::string::npos; ++quotes) {
        at += fence.size();
        const std::string quote = page.substr(at, page.find("```", at) - at);
        EXPECT_NE(example.find("\n" + quote), std::string::npos) << quote;
        at = page.find(fence, at);
    }
    EXPECT_GT(quotes, 5U);
}

} // namespace
} // namespace korvane
