#include "tool/ToolRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>

namespace korvane::test {
namespace {

using namespace std::string_literals;

class ToolInfo : public ToolRun {
  protected:
    void SetUp() override {
        ToolRun::SetUp();
        write("model.x",
              "xof 0302txt 0032\nframe frm-a__e {\nframetransformmatrix "
              "{\n2,0,0,0,0,1,0,0,0,0,1,0,10,0,0,1;;\n}\n"
              "mesh a {\n3;\n0;0;0;,\n1;0;0;,\n0;0.1;0;;\n1;\n3;0,1,2;;\nMeshMaterialList "
              "{\n1;\n1;\n0;;\nMaterial {\n1;0;0;0.5;;\n20;\n0;0;0;;\n0;0;0;;\nTextureFilename "
              "{\n\"A\";\n}\n}\n}\n}\nframe frm-\xe9 {\n}\n}\n"
              "animationset {\nanimation {\n{frm-a}\nanimationkey "
              "{\n2;\n2;\n5;3;1,2,3;;,\n9;3;1,2,0.7;;;\n}\n}\n}\n");
    }
};

TEST_F(ToolInfo, ShowsTheStructureThenTheFacts) {
    const Outcome outcome = run("info model.x");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, "model.x: 1 mesh, 3 vertices, 1 face\n"
                              "Frame frm-a (2 animation keys)\n   Mesh a (3 vertices, 1 face)\n"
                              "      MeshMaterialList (1 material, 1 face)\n         Material 1\n"
                              "   Frame frm-\xe9\nMaterials (1 material)\n   Material 1\n"
                              "Bounds of the model: 10 0 0 to 12 0.1 0\n"
                              "Bounds of frm-a in its own space: 0 0 0 to 1 0.1 0\n"
                              "Material 1: color 0 1 0, opacity 0.5, power 20, specular 0 0 0, "
                              "emissive 0 0 0, ambient 0 0 0, shading model 2\n"
                              "   Texture A: a.tga, 2 x 1 pixels\n"
                              "Animation of frm-a: type 2, 2 keys, times 5 to 9\n");
    QFile::remove(path("a.tga"));
    EXPECT_NE(run("info model.x").output.find("   Texture A: not found\n"), std::string::npos);
    write("a.bmp", "");
    EXPECT_NE(run("info model.x")
                  .output.find("   Texture A: a.bmp, cannot be decoded: it is not a bitmap\n"),
              std::string::npos);
}

TEST_F(ToolInfo, KeepsControlCharactersFromTheTerminal) {
    const struct {
        std::string name;
        std::string shown;
    } rows[] = {
        {"a\x1b[2j\x07", "a\\x1b[2j\\x07"},
        {"del\x7f", "del\\x7f"},
        {"\xc2\x9b"s + "6n", "\\x9b6n"},         // one character in UTF-8
        {"\x9b"s + "6n\xe9", "\\x9b6n\xc3\xa9"}, // one byte each: no UTF-8
        {"gr\xc3\xbc\xc3\x9f\\x1b", "gr\xc3\xbc\xc3\x9f\\x1b"},
        {"gr\xfc\xdf", "gr\xfc\xdf"},
    };
    for (const auto& row : rows) {
        write("odd.x", "xof 0302txt 0032\nframe frm-" + row.name + " {\n}\n");
        const Outcome outcome = run("info odd.x");
        EXPECT_EQ(outcome.output, "odd.x: 0 meshes, 0 vertices, 0 faces\nFrame frm-" + row.shown +
                                      "\nMaterials (0 materials)\n");
    }
    EXPECT_EQ(run("info no\x1b.x").errors, "no\\x1b.x: No such file\n");
}

TEST_F(ToolInfo, PrintsOneDocumentForAllFiles) {
    const Outcome outcome = run("info --json bad.x model.x");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "bad.x: Not a valid .X file\n");
    const char expected[] =
        R"({
"version": 1,
"files": [
{"error":"Not a valid .X file","file":"bad.x"},
{"bounds":{"max":[12,0.1,0],"min":[10,0,0]},"counts":{"animationKeys":2,"faces":1,"frames":2,)"
        R"("materials":1,"meshes":1,"vertices":3},"file":"model.x","frames":[{"animation":{"keys":)"
        R"([{"time":5,"values":[1,2,3]},{"time":9,"values":[1,2,0.7]}],"type":2},"basePose":null,)"
        R"("emissive":true,"gFlag":false,"kv2Animated":false,"matrix":[2,0,0,0,0,1,0,0,0,0,1,0,10,)"
        R"(0,0,1],"mesh":{"bounds":{"max":[1,0.1,0],"min":[0,0,0]},"faces":1,"materials":[0],)"
        R"("normals":0,"textureCoordinates":0,"vertexColors":0,"vertices":3},"name":"a",)"
        R"("parent":null,"renderBackwards":false},{"animation":null,"basePose":null,)"
        R"("emissive":false,"gFlag":false,"kv2Animated":false,"matrix":[1,0,0,0,0,1,0,0,0,0,1,0,)"
        R"(0,0,0,1],"mesh":null,"name":")"
        "\xc3\xa9"
        R"(","nameBytes":"e9","parent":0,"renderBackwards":false}],"materials":[{"ambient":[0,0,)"
        R"(0],"color":[0,1,0],"emissive":[0,0,0],"opacity":0.5,"power":20,"shadingModel":2,)"
        R"("specular":[0,0,0],"texture":{"file":"a.tga","height":1,"name":"A","width":2}}]}
]
}
)";
    EXPECT_EQ(outcome.output, expected);
}

TEST_F(ToolInfo, NumbersReadBackAsTheSameFloats) {
    const std::string texts[] = {"0.1",        "-0",        "1e-45",          "3.4028235e38",
                                 "16777217",   "0.3333333", "1.17549435e-38", "123456.79",
                                 "-9.8765434", "1e10",      "5e-324",         "0.7",
                                 "2.7182817",  "1e22",      "8388608.5",      "100"};
    std::string matrix;
    for (const std::string& text : texts) {
        matrix += (matrix.empty() ? "" : ",") + text;
    }
    write("m.x",
          "xof 0302txt 0032\nframe frm-a {\nframetransformmatrix {\n" + matrix + ";;\n}\n}\n");
    const std::string output = run("info --json m.x").output;
    const QJsonArray numbers = QJsonDocument::fromJson(QByteArray::fromStdString(
        output))[u"files"][0][u"frames"][0][u"matrix"]
                                   .toArray();
    ASSERT_EQ(numbers.size(), 16) << output;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const std::string& text = texts[static_cast<std::size_t>(i)];
        EXPECT_EQ(static_cast<float>(numbers[i].toDouble()), std::strtof(text.c_str(), nullptr))
            << text;
    }
    EXPECT_NE(output.find("[0.1,"), std::string::npos) << "the shortest text: " << output;
}

} // namespace
} // namespace korvane::test
