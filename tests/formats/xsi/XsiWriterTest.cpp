#include "support/TextModel.h"

#include <charconv>
#include <cstring>

namespace korvane {
namespace {

using test::writeText;

/// The text from the first frame on.
std::string framesOf(const ModelDocument& document) {
    const std::string text = writeText(document);
    return text.substr(text.find("Frame frm-"));
}

TEST(XsiWriter, AnEmptyModel) {
    EXPECT_EQ(writeText(ModelDocument()),
              "xsi 0101txt 0032\n\nSI_CoordinateSystem coord {\n   1;\n   0;\n   1;\n   0;\n   2;\n"
              "   5;\n}\n\n\n\nSI_Angle {\n   0;\n}\n\nSI_Camera  Camera1 {\n"
              "   1.297981; 2.646989; 3.466687;;\n   -1.766339; 1.376721; 2.805893;;\n"
              "   0.000000;\n   60.000031;\n   0.100000;\n   32768.000000;\n}\n\nSI_Ambience {\n"
              "   0.500000; 0.500000; 0.500000;;\n}\n\nSI_Fog {\n   0;\n   0;\n"
              "   0.500000; 0.500000; 0.500000;;\n   20.000000;\n   100.000000;\n}\n\n"
              "SI_Light  light1 {\n   0;\n   1.000000; 1.000000; 1.000000;;\n"
              "   0.000000; 5.966998; 0.000000;;\n}\n\n\n"
              "Frame frm- {\n\n   FrameTransformMatrix {\n      1,0,0,0,\n      0,1,0,0,\n"
              "      0,0,1,0,\n      0,0,0,1;;\n   }\n\n}\n");
}

constexpr const char* identity3 = "         1,0,0,0,\n         0,1,0,0,\n"
                                  "         0,0,1,0,\n         0,0,0,1;;\n";

/// A root without a mesh and two children, the first with everything that a frame can have.
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

TEST(XsiWriter, FramesAndMeshes) {
    const std::string expected =
        std::string("Frame frm-root {\n\n   FrameTransformMatrix {\n      1,0,0,0,\n"
                    "      0,1,0,0,\n      0,0,1,0,\n      0,0,0,1;;\n   }\n\n"
                    "   Frame frm-a__e2hg {\n\n      FrameTransformMatrix {\n") +
        identity3 +
        "      }\n\n      SI_FrameBasePoseMatrix {\n         1,0,0,0,\n         0,1,0,0,\n"
        "         0,0,1,0,\n         0.1,0,0,1;;\n      }\n\n"
        "      Mesh a__e2hg {\n         2;\n         0;0.5;0.333333;,\n"
        "         -1e-07;1.23457e+06;1e-05;;\n\n"
        "         2;\n         3;0,1,-1;,\n         1;1;;\n\n"
        "         MeshMaterialList {\n            1;\n            2;\n            0,\n"
        "            1;\n\n"
        "            SI_Material {\n               0.6;0.2;0;1;;\n               200;\n"
        "               0.5;0.5;0.5;;\n               0;0;0;;\n               2;\n"
        "               0;0;0;;\n\n"
        "               SI_Texture2D  {\n                  \"Skin.tga\";\n                  4;\n"
        "                  0;0;\n                  0;0;0;0;\n                  0;\n"
        "                  1;1;\n                  0;0;\n                  1;1;\n"
        "                  0;0;\n                  1,0,0,0,\n                  0,1,0,0,\n"
        "                  0,0,1,0,\n                  0,0,0,1;;\n                  3;\n"
        "                  1;\n                  0.75;\n                  1;\n"
        "                  0;\n                  0;\n                  0;\n"
        "                  0;\n               }\n            }\n         }\n\n"
        "         SI_MeshNormals {\n            1;\n            0;0;1;;\n\n            2;\n"
        "            0;3;0,1,-1;,\n            1;1;1;;\n         }\n\n"
        "         SI_MeshTextureCoords {\n            1;\n            0.25;0.75;;\n\n"
        "            2;\n            0;3;0,1,-1;,\n            1;1;1;;\n         }\n\n"
        "         SI_MeshVertexColors {\n            1;\n            1;0.5;0;0.25;;\n\n"
        "            0;\n         }\n      }\n"
        "   }\n"
        "   Frame frm- {\n\n      FrameTransformMatrix {\n" +
        identity3 +
        "      }\n\n   }\n}\n\n\nAnimationSet {\n   Animation anim-a__e2hg {\n"
        "      {frm-a__e2hg}\n      SI_AnimationKey {\n         3;\n         2;\n"
        "         0; 2; 1, 2.5;;,\n         -5; 1; 3;;;\n      }\n   }\n}\n";
    EXPECT_EQ(framesOf(fullExample()), expected);
}

TEST(XsiWriter, ClimbingClosesEveryFinishedFrame) {
    ModelDocument document;
    document.Root.Name = "r";
    document.Root.Children.resize(2);
    document.Root.Children[0].Children.resize(1);
    document.Root.Children[0].Children[0].Children.resize(1);
    std::string braces;
    std::string text = framesOf(document);
    for (std::size_t at = 0; (at = text.find_first_of("F}", at)) != std::string::npos; ++at) {
        const std::size_t line = text.rfind('\n', at) + 1;
        if (text.compare(at, 10, "Frame frm-") == 0 || text[at] == '}') {
            braces += std::to_string(at - line) + text[at];
        }
    }
    EXPECT_EQ(braces, "0F3}3F6}6F9}9F12}9}6}3}3F6}3}0}");
}

TEST(XsiWriter, OddModelsAreWrittenWithoutLookingBeyondTheirLists) {
    ModelDocument document = fullExample();
    document.Root.Children[0].Mesh.MaterialSlotList = {7, -1};
    const std::string text = framesOf(document);
    EXPECT_NE(text.find("0.75;0.75;0.75;1;;"), std::string::npos); // a new material's colour
    document.Root.Children[0].Mesh = MeshRecord();
    EXPECT_NE(framesOf(document).find("Mesh a__e2hg {\n         0;\n\n         0;\n      }\n"),
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
