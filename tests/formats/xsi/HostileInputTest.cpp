#include "formats/files/FileNames.h"
#include "formats/textures/TextureLoader.h"
#include "model/document/ModelCounts.h"
#include "model/document/StructureTree.h"
#include "model/records/FrameWalk.h"
#include "support/AllocationWatch.h"
#include "support/RandomModel.h"
#include "support/TextModel.h"

#include <QDir>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using test::readText;
using test::readXsiBody;

std::size_t frameCount(const FrameRecord& root) {
    std::size_t frames = 0;
    for (FrameWalk walk(root); !walk.done(); walk.next()) {
        ++frames;
    }
    return frames;
}

TEST(HostileInput, AFileCutAnywhereKeepsWhatWasReadSoFar) {
    std::string text;
    ModelDocument whole;
    for (std::uint32_t seed = 1; text.empty() || text.size() > 8000; ++seed) {
        const ModelDocument model = test::RandomModel(seed).make(); // of a handy size
        text = countModel(model.Root).meshes > 1 ? test::writeText(model) : "";
    }
    whole = readText(text);
    std::size_t vertices = 0; // the most so far
    for (std::size_t size = 16; size <= text.size(); ++size) {
        const ModelDocument document = readText(text.substr(0, size));
        const ModelCounts counts = countModel(document.Root);
        // cut after its exponent's "e", a number is malformed, while its digits alone were valid
        ASSERT_GE(counts.vertices + 1, vertices);
        vertices = std::max(vertices, counts.vertices);
        // a truncated keyword ("frametransf") may count as one more frame
        ASSERT_LE(frameCount(document.Root), frameCount(whole.Root) + 1);
    }
    EXPECT_EQ(vertices, countModel(whole.Root).vertices);
    EXPECT_GT(vertices, 0U);
}

TEST(HostileInput, AVertexIsKeptOnceItsLastNumberIsThere) {
    for (const auto& [text, vertices] : {std::pair{"9;\n1;2;3;,\n4;5", 1U},
                                         {"9;\n1;2;3;,\n4;5;6", 2U},
                                         {"9;\n1;2;3;,\n4;5;x;", 1U},
                                         {"9;\n1;2;3", 1U},
                                         {"9;\n1;2;", 0U},
                                         {"9", 0U}}) {
        const ModelDocument document = readXsiBody(std::string("frame a {\nmesh a {\n") + text);
        EXPECT_TRUE(document.Root.HasMesh);
        EXPECT_EQ(document.Root.Mesh.Vertices.size(), vertices) << text;
    }
}

/// The sizes of a frame's lists: vertices, faces, normals, coordinates, colours, slots, keys.
std::string held(const FrameRecord& frame) {
    const MeshRecord& mesh = frame.Mesh;
    std::string text;
    const auto add = [&text](const char* name, std::size_t size) {
        text += size == 0 ? "" : name + std::to_string(size) + " ";
    };
    add("v", mesh.Vertices.size());
    add("f", mesh.Faces.size());
    add("n", mesh.Normals.size());
    add("nf", mesh.NormalFaces.size());
    add("t", mesh.TexCoords.size());
    add("tf", mesh.TexCoordFaces.size());
    add("c", mesh.VertexColors.size());
    add("cf", mesh.VertexColorFaces.size());
    add("s", mesh.MaterialSlotList.size());
    add("sf", mesh.FaceSlotIndex.size());
    add("k", frame.AnimationKeys.size());
    for (const AnimationKeyRecord& key : frame.AnimationKeys) {
        add("values", key.Values.size());
    }
    return text;
}

TEST(HostileInput, CountsAreNotTrusted) {
    const std::string mesh = "mesh a {\n1;\n0;0;0;;\n1;\n3;0,0,0;;\n";
    const std::string keys = "}\nAnimationSet {\n Animation a {\n SI_AnimationKey {\n 0;\n ";
    // # stands for a count; what is read if it is too large, and if it is 0 or less
    const struct {
        std::string text;
        std::string large;
        std::string none;
    } rows[] = {
        {"mesh a {\n#;\n1;2;3;,\n4;5;6;;\n", "v2 ", ""},
        {"mesh a {\n1;\n0;0;0;;\n#;\n3;0,0,0;;\n", "v1 f1 ", "v1 "},
        {"mesh a {\n1;\n0;0;0;;\n1;\n#;0,0,0;;\n", "v1 ", "v1 f1 "},
        {mesh + "MeshNormals {\n#;\n1;2;3;,\n4;5;6;;\n}\n", "v1 f1 n2 ", "v1 f1 "},
        {mesh + "MeshNormals {\n1;\n0;0;1;;\n#;\n3;0,0,0;;\n}\n", "v1 f1 n1 nf1 ", "v1 f1 n1 "},
        {mesh + "MeshNormals {\n1;\n0;0;1;;\n1;\n0;#;0,0,0;;\n}\n", "v1 f1 n1 ", "v1 f1 n1 nf1 "},
        {mesh + "MeshTextureCoords {\n#;\n1;2;,\n4;5;;\n}\n", "v1 f1 t2 tf1 ", "v1 f1 tf1 "},
        {mesh + "SI_MeshTextureCoords {\n#;\n1;2;,\n4;5;;\n}\n", "v1 f1 t2 ", "v1 f1 "},
        {mesh + "SI_MeshVertexColors {\n#;\n1;2;3;4;,\n5;6;7;8;;\n}\n", "v1 f1 c2 ", "v1 f1 cf1 "},
        {mesh +
             "MeshMaterialList {\n#;\n1;\n0;\nMaterial {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n}\n}\n",
         "v1 f1 s1 sf1 ", "v1 f1 sf1 "},
        {mesh + "MeshMaterialList {\n1;\n#;\n0;\n1;\n}\n", "v1 f1 sf2 ", "v1 f1 "},
        {keys + "#;\n 0;1;1;;,\n 1;1;1;;;\n", "k2 values1 values1 ", ""},
        {keys + "1;\n 0;#;1;;;\n", "", "k1 "},
    };
    for (const auto& row : rows) {
        for (const std::string count : {"2000000000", "2147483647", "0", "-1", "-2147483648"}) {
            for (const std::size_t more : {0U, 1000000U}) { // bytes that a long list could fill
                std::string text = std::string(test::xsiHeader) + "frame a {\n" + row.text;
                text.replace(text.find('#'), 1, count) += std::string(more, ' ');
                ModelDocument document;
                const test::AllocationWatch watch;
                EXPECT_EQ(readXsi(TextScanner(text), document), ReadStatus::Done);
                EXPECT_LT(watch.largest(), 10000 + 6 * text.size()) << row.text;
                EXPECT_EQ(held(document.Root), count.front() == '2' ? row.large : row.none)
                    << row.text << " with " << count;
            }
        }
    }
}

TEST(HostileInput, FramesNestNoDeeperThanTheCap) {
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text += "frame a {\n";
    }
    ModelDocument document = readXsiBody(text);
    EXPECT_EQ(frameCount(document.Root), maxFrameDepth + 1);
    // Saving indents by depth; the same tree comes back.
    EXPECT_EQ(frameCount(readText(test::writeText(document)).Root), maxFrameDepth + 1);

    // Beyond the cap, a frame is skipped as a block, and reading continues after it.
    text =
        text.substr(0, 10 * (maxFrameDepth + 1)) + "frame x {\n mesh {\n }\n}\n}\nframe b {\n}\n";
    document = readXsiBody(text);
    EXPECT_EQ(frameCount(document.Root), maxFrameDepth + 2);
}

TEST(HostileInput, LongLinesAreReadWhole) {
    constexpr std::size_t size = 50'000'000;
    const ModelDocument document =
        readXsiBody("frame frm-a {\n " + std::string(size, 'f') + " mesh {\n1;\n1;2;3;;\n0;\n}\n" +
                    "frame frm-" + std::string(size, 'B') + " {\n}\n}\n");
    EXPECT_EQ(document.Root.Mesh.Vertices.size(), 1U);
    ASSERT_EQ(document.Root.Children.size(), 1U);
    EXPECT_EQ(document.Root.Children[0].Name, std::string(size, 'b'));
}

// Many small parts must cost linear time. Quadratic time would far exceed the limit of a test: at
// least 40 thousand million steps, at tens of nanoseconds each in a build with checks.
constexpr int manyThings = 100000;
constexpr int mentions = 4 * manyThings;

TEST(HostileInput, ManyMaterialsStayLinear) {
    const auto material = [](int number, const char* texture) {
        return "Material m {\n" + std::to_string(number) + ";0;0;1;;\n1;\n0;0;0;;\n0;0;0;;\n" +
               "TextureFilename {\n\"" + texture + "\";\n}\n}\n";
    };
    // half of the different ones name one texture, then the last one is repeated
    std::string text =
        "1;\n0;0;0;;\n0;\nMeshMaterialList {\n" + std::to_string(manyThings + mentions) + ";\n0;\n";
    for (int i = 0; i < manyThings; ++i) {
        text += material(i, i % 2 == 0 ? ("t" + std::to_string(i)).c_str() : "same.tga");
    }
    for (int i = 0; i < mentions; ++i) {
        text += material(manyThings - 1, "same.tga");
    }
    std::unordered_map<std::string, int> asked;
    ModelDocument document;
    text = std::string(test::xsiHeader) + "frame r {\nmesh a {\n" + text + "}\n}\n}\n";
    readXsi(TextScanner(text), document, [&asked](const std::string& name) {
        ++asked[name];
        return blankTextureImage();
    });
    const std::vector<std::int32_t>& slots = document.Root.Mesh.MaterialSlotList;
    ASSERT_EQ(document.Materials.size(), manyThings);
    ASSERT_EQ(slots.size(), manyThings + mentions);
    EXPECT_EQ(slots[manyThings - 1], manyThings - 1);
    EXPECT_EQ(std::count(slots.begin(), slots.end(), manyThings - 1), mentions + 1);
    // textures are requested no more often than the table has materials
    EXPECT_EQ(asked.size(), manyThings / 2 + 1);
    EXPECT_EQ(asked["t0"], 1);
    EXPECT_LE(asked["same.tga"], manyThings / 2);
}

TEST(HostileInput, ManyFramesAndAnimationsStayLinear) {
    std::string text = "frame r {\n";
    for (int i = 0; i < manyThings; ++i) { // half of them with the same name
        text += "frame frm-f" + (i % 2 == 0 ? std::to_string(i) : "") + " {\n}\n";
    }
    text += "frame frm-last {\n}\n}\n";
    for (int i = 0; i < mentions; ++i) {
        const char* names[] = {"last", "f99998", "unknown", "f"};
        text += std::string(i % 2 == 0 ? "AnimationSet {\n" : "") + "Animation a {\n{frm-" +
                names[i % 4] + "}\nSI_AnimationKey {\n1;\n1;\n" + std::to_string(i) +
                ";1;1;;;\n}\n}\n" + (i % 2 == 0 ? "" : "}\n");
    }
    ModelDocument document = readXsiBody(text);
    const std::vector<FrameRecord>& frames = document.Root.Children;
    ASSERT_EQ(frames.size(), manyThings + 1);
    EXPECT_EQ(frames.back().AnimationKeys.size(), mentions / 2); // unknown names lead to the last
    EXPECT_EQ(frames[manyThings - 2].AnimationKeys.size(), mentions / 4);
    EXPECT_EQ(frames[1].AnimationKeys.size(), mentions / 4); // the first of that name
    EXPECT_EQ(frames[1].AnimationKeys.back().Time, mentions - 1);
    EXPECT_FALSE(frames[3].HasAnimation);

    // showing and saving must be linear, too
    EXPECT_EQ(StructureTree(document).nodes().size(), manyThings + 3);
    document.markSelection(FramePath());
    EXPECT_EQ(frameCount(readText(test::writeText(document)).Root), manyThings + 2);
}

TEST(HostileInput, ManyMeshesOfOneFrameStayLinear) {
    std::string meshes;
    for (int i = 0; i < mentions; ++i) {
        meshes += "mesh a {\n1;\n0;0;0;;\n1;\n3;0,0,0;;\nMeshTextureCoords {\n1;\n0;0;;\n}\n}\n";
    }
    meshes = std::string(test::xsiHeader) + "frame r {\n" + meshes + "}\n";
    ModelDocument document;
    const test::AllocationWatch watch;
    EXPECT_EQ(readXsi(TextScanner(meshes), document), ReadStatus::Done);
    EXPECT_EQ(document.Root.Mesh.Faces.size(), mentions);
    EXPECT_EQ(document.Root.Mesh.TexCoords.size(), mentions);
    // each such list copies the faces read so far, until that is out of proportion
    EXPECT_GE(document.Root.Mesh.TexCoordFaces.size(), mentions);
    EXPECT_LT(watch.largest(), 10 * meshes.size());
}

/// Inputs that once caused a failure, each named after it.
TEST(HostileInput, PastFailuresStayFixed) {
    const QFileInfoList files = QDir(QStringLiteral(KORVANE_REGRESSION)).entryInfoList(QDir::Files);
    EXPECT_FALSE(files.isEmpty());
    for (const QFileInfo& file : files) {
        const QString path = file.filePath();
        const TextureImage image = loadTextureFile(path);
        EXPECT_EQ(image.pixels.size(),
                  static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
        ModelDocument document;
        if (isTextModel(modelFileKind(path)) && FileOpenXSI(path, document) == ReadStatus::Done) {
            EXPECT_EQ(frameCount(readText(test::writeText(document)).Root),
                      frameCount(document.Root))
                << qPrintable(path);
        }
    }
}

} // namespace
} // namespace korvane
