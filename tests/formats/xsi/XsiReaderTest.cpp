#include "formats/xsi/XsiFrameReader.h"
#include "support/TextModel.h"

#include <string>
#include <vector>

namespace korvane {
namespace {

using test::readMeshBody;
using test::readXsiBody;

/// Returns the names of a frame's subtree, "a(b c(d))".
std::string outline(const FrameRecord& frame) {
    std::string text = frame.Name;
    for (const FrameRecord& child : frame.Children) {
        text += (&child == &frame.Children.front() ? "(" : " ") + outline(child);
    }
    return frame.Children.empty() ? text : text + ")";
}

using Corners = std::vector<std::vector<std::uint32_t>>;

Corners corners(const PolygonList& list) {
    Corners all;
    for (std::size_t i = 0; i < list.size(); ++i) {
        all.emplace_back(list[i].begin(), list[i].end());
    }
    return all;
}

TEST(XsiHeader, DecidesBySixteenBytesInAnyCase) {
    const auto status = [](std::string_view text) {
        ModelDocument document;
        return readXsi(TextScanner(text), document);
    };
    for (const char* text :
         {"xsi 0101txt 0032", "XSI 0101TXT 0032\n", "xof 0302txt 0032", "xof 0302txt 0064rest"}) {
        EXPECT_EQ(status(text), ReadStatus::Done) << text;
    }
    for (const char* text : {"xof 0303txt 0032", "xof 0302bin 0032", "xof 0302tzip0032",
                             "xsi 0101txt 003", " xsi 0101txt 0032", ""}) {
        EXPECT_EQ(status(text), ReadStatus::NotValid) << text;
    }
}

TEST(FrameDeclaration, CountsCharactersFromTheKeyword) {
    const struct {
        const char* line;
        const char* name;
        const char* flags;
    } rows[] = {
        {"frame frm-box {", "box", ""},
        {"frame box {", "box", ""},
        {"frame box{", "box", ""},
        {"   frame frm-body__e2 {", "body", "e2"},
        {"frame frm-a__gxh{e", "a", "hg"},
        {"frame frm-a__ e {", "a", ""},
        {"frame frm-a_b_ {", "a_b_", ""},
        {"frame {", "{", ""}, // the first character always belongs to the name
        {"frame  box {", " box", ""},
        {"frame ___e {", "_", "e"}, // so the suffix begins after it
        {"frame", "", ""},
        {"frame ", "", ""},
        {"frame frm-", "", ""},
        {"frame box", "box", ""},
        {"frame box\t{", "box", ""},
        {"si_framebaseposematrix {", "aseposematrix", ""},
        {"frame {frm-ab}", "-ab}", ""}, // ten characters, wherever the prefix is
    };
    for (const auto& row : rows) {
        const FrameDeclaration parsed = parseFrameDeclaration(row.line);
        std::string flags;
        flags += parsed.emissive ? "e" : "";
        flags += parsed.renderBackwards ? "2" : "";
        flags += parsed.kv2Animated ? "h" : "";
        flags += parsed.gFlag ? "g" : "";
        EXPECT_EQ(parsed.name, row.name) << row.line;
        EXPECT_EQ(flags, row.flags) << row.line;
    }
}

TEST(XsiReader, LinesReadAsFrames) {
    const struct {
        const char* body;
        const char* expected;
    } rows[] = {
        {"template Frame {\n}\nframe frm-a {\n}\n", "a"},
        {"template X {\n Matrix4x4 frameMatrix;\n}\n", "atrix;"},
        {"frame frm-a\n{\n frame frm-b {\n }\n}\n", "a"}, // the brace must be on the keyword's line
        {"frame frm-a {\n frame frm-b\n {\n  frame frm-c {\n  }\n }\n}\n", "a(b)"},
        {"frame frm-a {\n frame frm-b { }\n}\n", "a(b)"}, // the body continues
        {"frame frm-a {\n { x }\n frame frm-b {\n }\n}\nframe frm-c {\n}\n", "a(c)"},
        {"frame frm-a {\n SI_Unknown {\n  { x }\n  frame { \n }\n }\n frame frm-c {\n }\n}\n",
         "a(c)"},
        {"frame frm-a {\r\n frame frm-b {\r\n }\r\n}\r\n", "a(b)"},
        {"FRAME FRM-A {\n}", "a"},
        // a base pose is an extra child
        {"frame frm-a {\nSI_FrameBasePoseMatrix {\n 1,0,0,0,\n 0,1,0,0,\n 0,0,1,0,\n"
         " 5,0,0,1;;\n}\nframe frm-b {\n}\n}\n",
         "a(aseposematrix b)"},
        // text after the closing brace of a matrix counts as the next line
        {"frame frm-a {\n FrameTransformMatrix {\n 2,0,0,0,0,2,0,0,0,0,2,0,0,0,0,1;; junk } frame "
         "frm-b {\n }\n}\n",
         "a(b)"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(outline(readXsiBody(row.body).Root), row.expected) << row.body;
    }
    const char* cut = "frame frm-a {\n FrameTransformMatrix {\n 2,0,0,0,\n 0,2,x\n}\n}\n";
    EXPECT_EQ(readXsiBody(cut).Root.Matrix, Matrix4()) << "no half matrix";
}

TEST(XsiReader, ASecondTopLevelFrameReplacesTheFirst) {
    const ModelDocument document =
        readXsiBody("frame frm-a__e {\n frame frm-x {\n }\n mesh a {\n 1;\n 1;2;3;;\n 1;\n"
                    " 1;0;;\n SI_MeshNormals {\n 1;\n 0;0;1;;\n 1;\n 0;1;0;;\n }\n }\n}\n"
                    "frame frm-b {\n frame frm-y {\n }\n}\n");
    EXPECT_EQ(outline(document.Root), "b(y)");
    EXPECT_FALSE(document.Root.HasMesh);
    EXPECT_FALSE(document.Root.Emissive);
    EXPECT_FALSE(document.Root.Mesh.HasNormals);
    EXPECT_TRUE(document.Root.Mesh.Vertices.empty());
    EXPECT_TRUE(document.Root.Mesh.Faces.empty());
    EXPECT_EQ(document.Root.Mesh.Normals.size(), 1U); // the other lists stay
    EXPECT_EQ(document.Root.Mesh.FaceNormals.size(), 1U);
}

constexpr std::string_view oneFace = "1;\n0;0;0;;\n1;\n3;0,0,0;;\n";

TEST(XsiReader, NumberedOrPlainPolygons) {
    const struct {
        const char* polygons;
        Corners expected;
    } rows[] = {
        {"2;\n3;0,0,0;,\n2;0,0;;\n", {{0, 0, 0}, {0, 0}}},
        {"2;\n0;3;0,0,0;,\n1;2;0,0;;\n", {{0, 0, 0}, {0, 0}}},
        {"2;\n0;3;0,0,0;,\n9;1;7;;\n", {{0, 0, 0}, {7}}},
        {"2;\n3;0 ,0\t,0;,\n2;0\n;0;;\n", {{0, 0, 0}, {0, 0}}},
        {"2;\n3;0,0,0;,\n0;;\n", {{0, 0, 0}, {}}}, // only the first number decides
        {"0;\n", {}},
    };
    for (const auto& row : rows) {
        const ModelDocument document =
            readMeshBody(std::string(oneFace) + "SI_MeshNormals {\n1;\n0;0;1;;\n" + row.polygons +
                         "}\nMeshNormals {\n1;\n0;1;0;;\n1;\n1;5;;\n}\n");
        Corners expected = row.expected;
        expected.push_back({5}); // each block decides for itself, and appends
        EXPECT_EQ(corners(document.Root.Mesh.NormalFaces), expected) << row.polygons;
        EXPECT_EQ(document.Root.Mesh.Normals.size(), 2U);
    }
}

TEST(XsiReader, ASecondMeshAddsToTheFirst) {
    // in DirectX, v points down, and the faces index texture coordinates
    const std::string mesh =
        "mesh a {\n" + std::string(oneFace) + "MeshTextureCoords {\n1;\n0.5;0.25;;\n}\n}\n";
    const ModelDocument document = readXsiBody("frame a {\n" + mesh + mesh + "}\n");
    EXPECT_EQ(document.Root.Mesh.Vertices.size(), 2U);
    EXPECT_EQ(document.Root.Mesh.Faces.size(), 2U);
    EXPECT_EQ(document.Root.Mesh.TexCoords, (std::vector<Vec2>{{0.5F, 0.75F}, {0.5F, 0.75F}}));
    const std::vector<std::uint32_t> face = {0, 0, 0}; // one copy, then a copy of both
    EXPECT_EQ(corners(document.Root.Mesh.TexCoordFaces), (Corners{face, face, face}));
}

TEST(XsiReader, CopiesOfFacesAreBoundedByTheText) {
    std::string body = "1;\n0;0;0;;\n100;\n";
    for (int i = 0; i < 100; ++i) {
        body += "3;0,0,0;,\n";
    }
    for (int i = 0; i < 1000; ++i) {
        body += "MeshTextureCoords {\n0;\n}\n";
    }
    const std::size_t copied = readMeshBody(body).Root.Mesh.TexCoordFaces.size();
    EXPECT_GE(copied, 4000U);
    EXPECT_LE(4 * copied, body.size() + 100);
}

} // namespace
} // namespace korvane
