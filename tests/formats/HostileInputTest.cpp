#include "formats/FileNames.h"
#include "formats/TextureLoader.h"
#include "model/FrameWalk.h"
#include "model/ModelCounts.h"
#include "support/ModelText.h"
#include "support/RandomModel.h"

#include <QDir>

#include <algorithm>

namespace korvane {
namespace {

using test::readMeshBody;
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
        // a number cut behind its exponent's "e" is none, while its digits alone were one
        ASSERT_GE(counts.vertices + 1, vertices);
        vertices = std::max(vertices, counts.vertices);
        // a keyword cut short ("frametransf") may pass for one frame more
        ASSERT_LE(frameCount(document.Root), frameCount(whole.Root) + 1);
    }
    EXPECT_EQ(vertices, countModel(whole.Root).vertices);
    EXPECT_GT(vertices, 0U);
}

TEST(HostileInput, AVertexIsKeptOnceItsLastNumberIsThere) {
    const struct {
        const char* text;
        std::size_t vertices;
    } rows[] = {{"9;\n1;2;3;,\n4;5", 1}, {"9;\n1;2;3;,\n4;5;6", 2}, {"9;\n1;2;3;,\n4;5;x;", 1},
                {"9;\n1;2;3", 1},        {"9;\n1;2;", 0},           {"9", 0}};
    for (const auto& row : rows) {
        const ModelDocument document = readXsiBody(std::string("frame a {\nmesh a {\n") + row.text);
        EXPECT_TRUE(document.Root.HasMesh);
        EXPECT_EQ(document.Root.Mesh.Vertices.size(), row.vertices) << row.text;
    }
}

TEST(HostileInput, CountsAreNotTrusted) {
    for (const std::string count : {"2000000000", "2147483647", "-1", "-2147483648", "0"}) {
        const std::string some = count + ";\n1;2;3;,\n4;5;6;;\n";
        readXsiBody("frame a {\nmesh a {\n" + some);
        const std::string mesh = "1;\n0;0;0;;\n1;\n3;0,0,0;;\n";
        readMeshBody("1;\n0;0;0;;\n" + count + ";\n3;0,0,0;;\n");
        readMeshBody("1;\n0;0;0;;\n1;\n" + count + ";0,0,0;;\n");
        readMeshBody(mesh + "MeshNormals {\n" + some + "}\n");
        readMeshBody(mesh + "MeshNormals {\n1;\n0;0;1;;\n" + count + ";\n3;0,0,0;;\n}\n");
        readMeshBody(mesh + "MeshNormals {\n1;\n0;0;1;;\n1;\n0;" + count + ";0,0,0;;\n}\n");
        readMeshBody(mesh + "MeshTextureCoords {\n" + some + "}\n");
        readMeshBody(mesh + "SI_MeshVertexColors {\n" + some + "}\n");
        readMeshBody(mesh + "MeshMaterialList {\n" + count + ";\n1;\n0;\n}\n");
        readMeshBody(mesh + "MeshMaterialList {\n1;\n" + count + ";\n0;\n}\n");
        readXsiBody("AnimationSet {\n Animation a {\n SI_AnimationKey {\n 0;\n " + count +
                    ";\n 0;1;1;;;\n");
        readXsiBody("AnimationSet {\n Animation a {\n SI_AnimationKey {\n 0;\n 1;\n 0;" + count +
                    ";1;;;\n");
    }
    const ModelDocument document =
        readXsiBody("frame a {\nmesh a {\n2000000000;\n1;2;3;,\n4;5;6;;\n");
    EXPECT_EQ(document.Root.Mesh.Vertices.size(), 2U);
    EXPECT_LT(document.Root.Mesh.Vertices.capacity(), 10U);
}

TEST(HostileInput, NumbersThatAreNoneEndTheReading) {
    for (const std::string number : {"nan", "inf", "-inf", "1e39", "abc", "}", "\"", "1e"}) {
        const ModelDocument document =
            readMeshBody("2;\n0;0;0;,\n1;" + number + ";0;;\n1;\n1;0;;\n");
        EXPECT_EQ(document.Root.Mesh.Vertices.size(), 1U) << number;
        EXPECT_TRUE(document.Root.Mesh.Faces.empty()) << number;
    }
}

TEST(HostileInput, FramesNestNoDeeperThanTheCap) {
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text += "frame a {\n";
    }
    ModelDocument document = readXsiBody(text);
    EXPECT_EQ(frameCount(document.Root), maxFrameDepth + 1);
    // Saving indents by depth; what comes back is the same tree.
    EXPECT_EQ(frameCount(readText(test::writeText(document)).Root), maxFrameDepth + 1);

    // Past the cap a frame is a block to skip, and what follows it is read on.
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

TEST(HostileInput, ManySmallPartsStayLinear) {
    constexpr int count = 20000;
    std::string meshes;
    std::string materials =
        "1;\n0;0;0;;\n0;\nMeshMaterialList {\n" + std::to_string(count) + ";\n0;\n";
    std::string frames = "frame r {\n";
    std::string animations = "AnimationSet {\n";
    for (int i = 0; i < count; ++i) {
        const std::string n = std::to_string(i);
        meshes += "mesh a {\n1;\n0;0;0;;\n1;\n3;0,0,0;;\n}\n";
        materials += "Material m {\n" + n + ";0;0;1;;\n1;\n0;0;0;;\n0;0;0;;\n}\n";
        frames += "frame frm-f" + n + " {\n}\n";
        animations +=
            "Animation a {\n{frm-f" + n + "}\nSI_AnimationKey {\n1;\n1;\n0;1;1;;;\n}\n}\n";
    }
    EXPECT_EQ(readXsiBody("frame r {\n" + meshes + "}\n").Root.Mesh.Faces.size(), count);
    EXPECT_EQ(readMeshBody(materials + "}\n").Materials.size(), count);
    const ModelDocument document = readXsiBody(frames + "}\n" + animations + "}\n");
    EXPECT_TRUE(document.Root.Children.back().HasAnimation);
}

TEST(HostileInput, RandomDamageHarmsNothing) {
    std::mt19937 random(5);
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        const std::string text = test::writeText(test::RandomModel(seed).make());
        for (int round = 0; round < 20; ++round) {
            std::string damaged = text;
            for (int i = 0; i < 5; ++i) {
                const std::size_t at = 16 + random() % (damaged.size() - 16);
                switch (random() % 3) {
                case 0:
                    damaged[at] = static_cast<char>(random());
                    break;
                case 1:
                    damaged.erase(at, random() % 50);
                    break;
                default:
                    damaged.insert(at,
                                   text.substr(16 + random() % (text.size() - 16), random() % 200));
                    break;
                }
            }
            const ModelDocument document = readText(damaged);
            test::writeText(document);
        }
    }
}

/// Inputs that once did harm, each named after what was wrong.
TEST(HostileInput, FormerHarmIsHarmless) {
    const QDir folder(QStringLiteral(KORVANE_REGRESSION));
    const QStringList names = folder.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        const QString file = folder.filePath(name);
        if (isTextModelName(file)) {
            ModelDocument document;
            EXPECT_EQ(FileOpenXSI(file, document), ReadStatus::Done) << qPrintable(name);
            EXPECT_FALSE(test::writeText(document).empty());
        } else {
            EXPECT_GT(loadTextureFile(file).pixels.size(), 0U) << qPrintable(name);
        }
    }
}

} // namespace
} // namespace korvane
