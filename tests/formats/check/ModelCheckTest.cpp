#include "formats/check/ModelCheck.h"

#include "model/records/FrameWalk.h"
#include "support/Findings.h"
#include "support/RandomModel.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <string>
#include <vector>

namespace korvane {
namespace {

using test::checked;
using test::expectFindings;
using test::findingLines;
using Row = test::CheckedText;

TEST(ModelCheck, ReportsWhatASaveDrops) {
    const std::string keys = "AnimationKey {\n 0;\n 2;\n 0;1;1;;;\n 1;1;1;;;\n }\n }\n}\n";
    const Row rows[] = {
        {"frame a {\n}\nanimationset {\n animation m {\n  {frm-a}\n" + keys,
         "7 keys-not-saved: Frame \"a\" has no mesh: its 2 keys are not saved\n"},
        {"frame a__e {\n}\n",
         "2 flags-not-saved: Frame \"a\" has no mesh: its flags are not saved\n"},
        {"frame a {\n frame frameb {\n mesh {\n1;\n0;0;0;;\n0;\n}\n }\n}\n",
         "3 name-not-saved: Frame \"frameb\" is not fully restored from a saved file: its name "
         "contains \"frame\" and the frame has a mesh (lost: mesh)\n"},
        {"frame a {\n}\nanimationset {\n animation m {\n  {frm-a}\n  AnimationKey {\n 0;\n 0;\n "
         "}\n }\n}\n",
         "7 keys-not-saved: Frame \"a\" has no mesh: its animation is not saved\n"},
        {"frame a {\n frame\n }\n}\n", "3 name-not-saved: Frame \"\" is not fully restored from a "
                                       "saved file: its name is empty (lost: name)\n"},
    };
    expectFindings(rows, false);
}

TEST(ModelCheck, ReportsWhereReadingASavedFileEnds) {
    const std::string head = "frame a {\nmesh a {\n1;\n0;0;0;;\n";
    const std::string list = " {\n0;\n3;\n0;0;,1;1;0;,2;1;0;;\n}\n";
    const std::string end = "}\n}\n";
    const std::string animation = "animationset {\nanimation {\n{frm-a}\nanimationkey {\n1;\n3;\n";
    const Row rows[] = {
        {head + "3;\n1;0;,0;;1;0;;\n" + end,
         "3 empty-not-saved: In the mesh of frame \"a\", face 1 has no corners: reading a saved "
         "file stops there\n"},
        {head + "2;\n1;0;,0;;\n" + end, ""},
        {head + "0;\nSI_MeshNormals" + list + end,
         "7 empty-not-saved: In the normals of frame \"a\", face 0 has no corners: reading a saved "
         "file stops there\n"},
        {head + "0;\nSI_MeshTextureCoords" + list + end,
         "7 empty-not-saved: In the texture coordinates of frame \"a\", face 0 has no corners: "
         "reading a saved file stops there\n"},
        {head + "0;\nSI_MeshVertexColors" + list + end,
         "7 empty-not-saved: In the vertex colours of frame \"a\", face 0 has no corners: reading "
         "a saved file stops there\n"},
        {head + "0;\n" + end + animation + "1;0;;,2;0;;,3;1;5;;;\n}\n}\n}\n",
         "12 empty-not-saved: In the keys of frame \"a\", key 0 (and 1 more) has no values: "
         "reading a saved file stops there\n"},
        {head + "0;\n" + end + animation + "1;1;5;;,2;1;5;;,3;0;;;\n}\n}\n}\n", ""},
    };
    for (const Row& row : rows) {
        const std::string text = std::string(test::xsiHeader) + row.body;
        ModelCheck check = checkModel(text, {.hazards = false});
        EXPECT_EQ(findingLines(check.findings), row.expected) << row.body;
        const ModelCheck again = checkModel(test::writeText(check.document), {.hazards = false});
        const bool ended =
            std::any_of(again.findings.begin(), again.findings.end(),
                        [](const Finding& finding) { return finding.id == FindingId::EndedEarly; });
        EXPECT_EQ(ended, !std::string_view(row.expected).empty()) << row.body;
    }
}

TEST(ModelCheck, ReportsHazards) {
    const std::string head = "frame a {\nmesh a {\n4;\n0;0;0;,\n1;0;0;,\n0;1;0;,\n2;0;0;;\n";
    const std::string face = "1;\n3;0,1,2;;\n";
    const std::string normals = "SI_MeshNormals {\n1;\n0;0;1;;\n1;\n0;3;0,0,0;;\n}\n";
    const std::string material = "Material {\n1;1;1;0;;\n1;\n1;1;1;;\n1;1;1;;\n}\n}\n";
    const Row rows[] = {
        {head + face + normals, ""},
        {head + face, "3 no-normals: The mesh of frame \"a\" has no normals\n"},
        {head + "3;\n3;0,1,2;,\n3;0,9,2;,\n3;0,1,-1;;\n",
         "3 index-out-of-range: Face 1 of frame \"a\" refers to vertex 9 of 4 (and 1 more)\n"
         "3 no-normals: The mesh of frame \"a\" has no normals\n"},
        {head + "4;\n3;0,1,3;,\n2;0,1;,\n3;0,0,1;,\n1;0;;\n",
         "3 no-normals: The mesh of frame \"a\" has no normals\n"
         "3 few-corners: Face 1 (and 1 more) of frame \"a\" has fewer than three corners\n"
         "3 no-area: Face 0 (and 1 more) of frame \"a\" has no area\n"},
        {head + face + "SI_MeshNormals {\n1;\n0;0;1;;\n2;\n0;3;0,1,0;,\n1;3;0,0,0;;\n}\n",
         "11 index-out-of-range: Face 0 of frame \"a\" refers to normal 1 of 1\n"
         "11 lists-differ: The normals of frame \"a\" cover 2 faces instead of 1\n"},
        {head + face + normals +
             "MeshTextureCoords {\n1;\n0;0;;\n}\nSI_MeshVertexColors {\n1;\n"
             "1;1;1;1;;\n1;\n0;3;0,0,4;;\n}\n",
         "17 index-out-of-range: Face 0 of frame \"a\" refers to texture coordinate 1 of 1 (and 1 "
         "more)\n"
         "21 index-out-of-range: Face 0 of frame \"a\" refers to vertex colour 4 of 1\n"},
        {head + face + normals + "MeshMaterialList {\n1;\n3;\n0,\n1,\n-1;\n" + material,
         "17 index-out-of-range: Face 1 (and 1 more) of frame \"a\" refers to material 1 of 1\n"
         "23 opacity-zero: A material has opacity 0\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(checked(row.body + "}\n}\n"), row.expected) << row.body;
        EXPECT_EQ(checked(row.body + "}\n}\n", false), "") << row.body;
    }
}

/// Only the frame where reading ended has lists that cannot be judged.
TEST(ModelCheck, DoesNotReportFaultsCausedByOthers) {
    const std::string head = "mesh a {\n3;\n0;0;0;,\n1;0;0;,\n0;1;0;;\n1;\n3;0,1,2;;\n";
    const std::string keys =
        "animationset {\nanimation {\n{frm-a}\nanimationkey {\n1;\n0;\n7;\n}\n}\n}\n";
    const Row rows[] = {
        {"frame a {\n" + head + "}\nframe b {\n" + head +
             "meshmateriallist {\n1;\n1;\n0;\nmaterial {\nx\n",
         "3 no-normals: The mesh of frame \"a\" has no normals\n"
         "24 ended-early: Reading stops here: \"x\" is not a number; the rest of the file is "
         "ignored\n"},
        {"frame a {\n" + head + "}\n}\n" + keys,
         "3 no-normals: The mesh of frame \"a\" has no normals\n"
         "15 count-wrong: \"animationkey {\" has more numbers than expected; the rest is "
         "ignored\n"},
        {"frame a {\n" + head +
             "meshmateriallist {\n2;\n1;\n0;\nmaterial "
             "{\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n}\n}\n}\n}\n",
         "10 count-wrong: The list has fewer materials than its count; reading continues into what "
         "follows\n"},
    };
    expectFindings(rows);
}

TEST(ModelCheck, NamesUnsupportedHeaders) {
    const std::pair<std::string, const char*> rows[] = {
        {"xof 0303txt 0032", "DirectX 0303 text: only 0302 is read"},
        {"XOF 0303TXT 0032", "DirectX 0303 text: only 0302 is read"},
        {"xof 0302bin 0064", "DirectX 0302 binary: only 0302 text is read"},
        {"xof 0303bzip0032", "DirectX 0303 compressed binary: only 0302 text is read"},
        {"xof 0302tzip0032", "DirectX 0302 compressed text: only 0302 text is read"},
        {"xsi 0300txt 0032", "dotXSI 0300 text: only 0101 is read"},
        {"xsi 0101txt 0064", "dotXSI 0101 text 0064: only 0101 text 0032 is read"},
        {"xof 0302txt 0128", "DirectX 0302 text 0128: only 0302 text 0032 or 0064 is read"},
        {"xof 0302odd 0032", ""},
        {"xof 03x2txt 0032", ""},
        {"solid cube of 16", ""},
        {"xof 0303txt", ""},
        {"", ""},
    };
    for (const auto& [bytes, refusal] : rows) {
        const ModelCheck check = checkModel(bytes);
        EXPECT_EQ(check.status, ReadStatus::NotValid) << bytes;
        EXPECT_EQ(check.refusal, QLatin1String(refusal)) << bytes;
        EXPECT_TRUE(check.findings.empty());
    }
}

TEST(ModelCheck, WithoutLossesSavingReproducesTheFile) {
    int whole = 0;
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        const std::string saved = test::writeText(test::RandomModel(seed).make());
        const ModelCheck check = checkModel(saved, {.hazards = false});
        if (std::none_of(check.findings.begin(), check.findings.end(), isLoss)) {
            ++whole;
            EXPECT_EQ(test::writeText(check.document), saved) << "seed " << seed;
        }
    }
    EXPECT_GT(whole, 10);
}

TEST(ModelCheck, LongAndDeepFilesTakeLinearTime) {
    const auto repeated = [](const std::string& text, std::size_t count) {
        std::string all;
        for (std::size_t i = 0; i < count; ++i) {
            all += text;
        }
        return all;
    };
    const std::string last(4000000, ' ');
    for (const std::string& body :
         {repeated("frame b {\n", 200000), repeated("frame {\n}\n", 200000),
          "frame a {\n" + repeated("{x}\n}\n", 200000), repeated("x {\n", 200000),
          repeated("{\n", 200000), "frame a {\n" + repeated("\n\n\n\n{\n", 100000),
          "frame a {\n" + repeated("frame b {\n", 1000) + last + 'x',
          "frame a {\n" + repeated("frame b__e {\n}\nx y {\n}\n", 100000),
          "frame a {\nmesh {\n0;\n0;\nmeshmateriallist {\n100000;\n0;\n" +
              repeated("material {\n1;1;1;0;;\n1;\n1;1;1;;\n1;1;1;;\nsi_texture2d {\n\"/a\";\n1;\n"
                       "}\n}\n{b}\n",
                       50000),
          "frame a {\n" + repeated("frametransformmatrix {\n1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1\n}\n"
                                   "mesh {\n0;\n0;\n}\n",
                                   50000),
          "frame a {\n}\nanimationset {\n" +
              repeated("animation {\n{frm-x}\nanimationkey {\n0;\n0;\n}\n}\n", 100000)}) {
        const auto start = std::chrono::steady_clock::now();
        const ModelCheck check = checkModel(std::string(test::xsiHeader) + body);
        const auto time = std::chrono::steady_clock::now() - start;
        EXPECT_LT(time, std::chrono::seconds(20)) << body.substr(0, 60);
        EXPECT_LT(check.findings.size(), 100U);
        EXPECT_TRUE(std::is_sorted(check.findings.begin(), check.findings.end(),
                                   [](const Finding& a, const Finding& b) {
                                       return a.line - 1 < b.line - 1; // 0, no line, comes last
                                   }))
            << findingLines(check.findings);
    }
}

TEST(ModelCheck, ManyOfAKindAreCounted) {
    std::string body = "frame a {\n";
    for (int i = 0; i < 40; ++i) {
        body += "frame b__e {\n}\n";
    }
    const std::string text = checked(body + "}\n");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 11);
    EXPECT_NE(text.find("23 flags-not-saved: 30 more of the same\n"), std::string::npos) << text;
    const std::string name(100, 'x');
    EXPECT_NE(checked("frame " + name + " y {\n}\n").find('"' + name.substr(20) + "...\""),
              std::string::npos);
}

TEST(Findings, HaveNamesAndExplanations) {
    std::set<std::string_view> names;
    for (const FindingRow& row : findingRows()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_EQ(findingRow(row.name), &row);
        EXPECT_TRUE(row.explanation.ends_with('.')) << row.name;
        std::string_view rest = row.explanation;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find('\n'), rest.size());
            EXPECT_LE(end, 90U) << row.name;
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    EXPECT_EQ(findingRow("no-such-finding"), nullptr);
}

class TextureFindings : public test::TestFiles {
  protected:
    /// Returns the findings about the textures of a model that names all of these.
    std::string checkedTextures(const std::vector<std::string>& names, TextureLoader& loader) {
        std::string text = std::string(test::xsiHeader) +
                           "frame a {\nmesh a {\n0;\n0;\nMeshMaterialList {\n" +
                           std::to_string(names.size()) + ";\n0;\n";
        for (const std::string& name : names) {
            text += "Material {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\nTextureFilename {\n\"" + name +
                    "\";\n}\n}\n";
        }
        return findingLines(
            checkModel(text + "}\n}\n}\n", {.hazards = false, .textures = &loader}).findings);
    }
};

TEST_F(TextureFindings, ExplainWhyATextureIsNotShown) {
    using namespace std::string_literals;
    const std::string header = "\0\0\2\0\0\0\0\0\0\0\0\0\4\0\4\0\x18\0"s; // 4 x 4 pixels
    write("good.tga", header + std::string(48, 'x'));
    write("Sub/Deep.TGA", header + std::string(48, 'x'));
    write("cut.tga", header);
    write("photo.jpg", "x");
    TextureLoader loader(folder(), 30);
    EXPECT_EQ(
        checkedTextures({"good.tga", "gone.tga", "GOOD.tga", "c:\\x\\good.tga", "Sub\\Deep.TGA",
                         "cut.tga", "photo.jpg", "good", "Good"},
                        loader),
        "23 texture-missing: Texture \"gone.tga\" was not found\n"
        "32 texture-spelling: Texture \"GOOD.tga\" is found only in different letter case: "
        "\"good.tga\"\n"
        "41 texture-spelling: Texture \"c:\\x\\good.tga\" is found only without its folder: "
        "\"good.tga\"\n"
        "50 texture-spelling: Texture \"Sub\\Deep.TGA\" is found only if backslashes count as "
        "separators: \"Sub/Deep.TGA\"\n"
        "50 texture-too-large: Texture \"Sub\\Deep.TGA\" cannot be shown: it has too many pixels\n"
        "59 texture-not-decoded: Texture \"cut.tga\" cannot be shown: it is truncated\n"
        "68 texture-not-decoded: Texture \"photo.jpg\" cannot be shown: .jpg files are not read\n"
        "86 texture-spelling: Texture \"Good\" is found only in different letter case: "
        "\"good.tga\"\n");
}

} // namespace
} // namespace korvane
