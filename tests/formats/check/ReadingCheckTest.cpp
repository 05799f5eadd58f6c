#include "support/Findings.h"

#include <string>

namespace korvane {
namespace {

using test::expectFindings;
using Row = test::CheckedText;

/// A frame with a mesh, both not closed.
const std::string mesh = "frame a {\nmesh a {\n1;\n0;0;0;;\n0;\n";

TEST(ReadingCheck, ReportsWhereBlocksAndFilesEnd) {
    const Row rows[] = {
        {"frame a {\n mesh a {\n  2;\n  1;2;x;;\n",
         "5 ended-early: Reading stops here: \"x\" is not a number; the rest of the file is "
         "ignored\n"},
        {"frame a {\n mesh a {\n  2;\n  1;2;\n\n",
         "5 ended-early: The file ends where a number is expected\n"},
        {"frame a {\n mesh a {\n  1;\n  1;-1.#IND00;2;;\n",
         "5 not-finite: Reading stops here: \"IND00\" is not finite; the rest of the file is "
         "ignored\n"},
        {"frame a {\n mesh a {\n  1;\n  1;2;-nan;\n",
         "5 not-finite: Reading stops here: \"-nan\" is not finite; the rest of the file is "
         "ignored\n"},
        {"frame a {\n mesh a {\n  1;\n  1;2;1e39;\n",
         "5 not-finite: Reading stops here: \"1e39\" is too large; the rest of the file is "
         "ignored\n"},
        {"frame a {\n mesh a\n {\n",
         "4 brace-on-next-line: Reading stops here: the brace is on the line after its keyword; "
         "the rest of the file is ignored\n"},
        {"frame a {\n frame b\n {\n  x {\n  }\n }\n}\n",
         "4 brace-on-next-line: The brace is on the line after \"frame b\"; the whole block is "
         "ignored\n"},
        {"frame a {\n}\nanimationset x\n\n{\n  animation a {\n  }\n}\n",
         "6 brace-on-next-line: The brace is on the line after \"animationset x\"; the whole block "
         "is ignored\n"},
        {"frame a {\n frame b {\n }\n", "2 file-ends: The file ends inside frame \"a\"\n"},
        {"frame a {\n}\nanimationset {\n", "4 file-ends: The file ends inside an animation\n"},
        {"frame a {\n frame b { }\n}\n",
         "3 closed-on-one-line: Frame \"b\" is closed on the line that opens it, but continues to "
         "the next closing brace\n"},
        {"frame a {\n {ref}\n x {\n }\n}\n", "3 closed-on-one-line: Everything after \"{ref}\" is "
                                             "ignored, up to the next closing brace\n"},
        {"", "0 no-frame: The file has no frames\n"},
        {"frame a {\n mesh a {\n  1;\n  ;1;2;;\n",
         "5 ended-early: Reading stops here: \";\" is not a number; the rest of the file is "
         "ignored\n"},
        {"frame a {\n frame b {\n  {ref}\n  x {\n  }\n }\n",
         "4 closed-on-one-line: Everything after \"{ref}\" is ignored, up to the next closing "
         "brace\n"},
        {"frame r {\n frame a {\n  frame b { }\n }\n",
         "2 file-ends: The file ends inside frame \"r\"\n"
         "4 closed-on-one-line: Frame \"b\" is closed on the line that opens it, but continues to "
         "the next closing brace\n"},
        {"frame a {\n}\nanimationset {\n x\n {\n }\n\n {y}\n }\n",
         "5 block-left-out: Block \"x\" is ignored\n"
         "9 closed-on-one-line: Everything after \"{y}\" is ignored, up to the next closing "
         "brace\n"},
    };
    expectFindings(rows);
}

TEST(ReadingCheck, ReportsBlocksLeftOut) {
    const Row rows[] = {
        {"mesh {\n 1;\n normals {\n }\n}\nframe a {\n}\n",
         "2 mesh-outside-frame: A mesh outside all frames is ignored\n"},
        {"template mesh {\n x;\n}\ntemplate mesh\n{\n}\nheader {\n}\nframe a {\n}\n", ""},
        {"Matrix4x4 frameMatrix;\n}\nframe c {\n}\n",
         "2 block-as-frame: \"Matrix4x4\" is read as frame \"atrix;\"\n"},
        {"frame a {\n SI_FrameBasePoseMatrix {\n 1;\n }\n}\n",
         "3 base-pose-as-frame: \"SI_FrameBasePoseMatrix\" is read as frame \"aseposematrix\"\n"},
        {"frame a {\n // a frame x {\n }\n // frame y {\n }\n}\n",
         "3 block-as-frame: \"//\" (and 1 more) is read as frame \"x\"\n"},
        {"frame a {\n SkinWeights {\n }\n x\n {\n }\n skinweights {\n }\n}\nSI_Camera c {\n "
         "1;\n}\n",
         "3 block-left-out: Block \"SkinWeights\" (and 1 more) is ignored\n"
         "5 block-left-out: Block \"x\" is ignored\n"
         "11 block-left-out: Block \"SI_Camera\" is ignored\n"},
        {"{\n}\nframe a {\n {\n }\n x {\n }\n}\n",
         "2 block-left-out: A block without a name (and 1 more) is ignored\n"
         "7 block-left-out: Block \"x\" is ignored\n"},
        {"frame a {\n // a mesh\n0;\n0;\n}\n}\n",
         "3 block-as-mesh: \"//\" is read as a mesh of frame \"a\"\n"},
    };
    expectFindings(rows);
}

TEST(ReadingCheck, ReportsLossesOfFrames) {
    const std::string matrix = "1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1";
    const Row rows[] = {
        {"frame a {\n}\n", ""},
        {"frame a {\n}\nframe b {\n}\nframe c {\n}\n",
         "4 second-root: Only the last of 3 outermost frames, \"c\", is kept\n"},
        {"Frame frm-Body__e2 {\n Frame B {\n }\n mesh b {\n0;\n0;\n}\n}\n",
         "2 name-case: The name of frame \"Body\" (and 1 more) becomes lower case\n"},
        {"frame a {\n frame left hand {\n }\n frame b__L1 {\n }\n}\n",
         "3 name-cut: The name of frame \"left\" is truncated: \"hand\" is ignored\n"
         "5 name-cut: The name of frame \"b\" is truncated: \"__l1\" is ignored\n"},
        {"Frame {\n Frame  b {\n }\n}\n",
         "2 name-odd: The name of the frame begins with white space or a brace: \"{\"\n"
         "3 name-odd: The name of the frame begins with white space or a brace: \" b\"\n"},
        {"frame a {\nFrameTransformMatrix {\n" + matrix + ";\n}\nFrameTransformMatrix {\n" +
             matrix + ",9;\n}\n}\n",
         "6 second-list: Another \"FrameTransformMatrix\" in frame \"a\": the previous one is "
         "ignored\n"
         "6 count-wrong: \"FrameTransformMatrix {\" has more numbers than expected; the rest is "
         "ignored\n"},
    };
    expectFindings(rows);
}

TEST(ReadingCheck, ReportsLossesOfLists) {
    const std::string material = "Material {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n}\n";
    const Row rows[] = {
        {mesh + "}\nmesh b {\n0;\n0;\n}\n}\n", "8 second-mesh: Another mesh in frame \"a\": its "
                                               "faces refer to the vertices of the first\n"},
        {mesh + "MeshMaterialList {\n2;\n0;\n{Red}\n{ blue }\n}\n}\n}\n",
         "10 material-by-name: Material \"Red\" (and 1 more) is only referenced by name, and adds "
         "no slot\n"},
        {mesh + "MeshMaterialList {\n1;\n0;\nMaterial {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n"
                "TextureFilename {\n\"maps/a.tga\";\n}\n}\n}\n}\n}\n",
         "15 texture-folder: Texture \"maps/a.tga\" is kept as \"a.tga\", without its folder\n"},
        {mesh + "MeshMaterialList {\n1;\n0;\nMaterial {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n"
                "TextureFilename { \"a.tga\"; }\n}\n}\n}\n}\n",
         "15 closed-on-one-line: \"TextureFilename { \"a.tga\"; }\" is ignored: the texture name "
         "must be on a later line\n"
         "16 ended-early: Reading stops here: no quotation mark follows\n"},
        {mesh + "MeshMaterialList {\n1;\n0;\nSI_Material {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n2;\n"
                "0;0;0;;\nSI_Texture2D {\n\"a.tga\";\n4;\n256;256;\n}\n}\n}\n}\n}\n",
         "17 texture-parameters: Only the name of texture \"a.tga\" is read\n"},
        {"frame a {\nmesh a { // of 4\n1;\n0;0;0;;\n0;\nmesh2 { // 5\n}\n}\n}\n",
         "7 block-left-out: Block \"mesh2\" is ignored\n"},
        {"frame a {\nmesh a { 4;\n0;0;0;,\n}\n}\n",
         "3 numbers-behind-brace: Numbers after the brace of \"mesh a { 4;\" are ignored\n"},
        {mesh + "1;2;3;;\n0;\n}\n}\n",
         "3 count-wrong: \"mesh a {\" has more numbers than expected; the rest is ignored\n"},
        {mesh + "MeshNormals {\n1;\n0;0;1;;\n0;\n3;0,0,0;;\n}\n}\n}\n",
         "7 count-wrong: \"MeshNormals {\" has more numbers than expected; the rest is ignored\n"},
        {mesh + "MeshMaterialList {\n1;\n1;\n0,\n0;;\n" + material + material + "}\n}\n}\n",
         "7 count-wrong: \"MeshMaterialList {\" has more numbers than expected; the rest is "
         "ignored\n"
         "7 count-wrong: The list has more materials than its count; 1 material is ignored\n"},
        {mesh + "MeshMaterialList {\n3;\n0;\n" + material + "}\n}\n}\n",
         "7 count-wrong: The list has fewer materials than its count; reading continues into what "
         "follows\n"},
        {mesh + "MeshNormals {\n0;\n0;\n}\nMeshNormals {\n0;\n0;\n}\n}\n}\n",
         "11 second-list: Another \"MeshNormals\" in frame \"a\" is appended to the previous "
         "one\n"},
    };
    expectFindings(rows);
}

TEST(ReadingCheck, ReportsLossesOfAnimations) {
    const std::string keys = "animationset {\n animation m {\n  {frm-a}\n  SI_AnimationKey {\n"
                             "   0;\n   1;\n   0; 1; 1;;;\n  }\n }\n}\n";
    const Row rows[] = {
        {mesh + "}\n}\n" + keys, ""},
        {mesh + "}\n}\nanimationset {\n animation m {\n  {frm-b}\n  AnimationKey {\n 0;\n 0;\n }\n"
                " }\n}\n",
         "11 unknown-frame: No frame is named \"b\": the keys go to \"a\"\n"},
        {mesh + "}\n}\nanimationset {\n animation m {\n  AnimationKey {\n 0;\n 0;\n }\n  "
                "AnimationKey {\n 0;\n 0;\n }\n }\n}\n",
         "10 unknown-frame: An animation names no frame as {frm-NAME}: the keys go to \"a\"\n"
         "15 keys-joined: Another key list for frame \"a\" is appended to the first, and its type "
         "applies to both\n"},
        {mesh + "}\n}\nanimationset {\n animation m {\n  {frm-a}\n  AnimationKey {\n 0;\n 1;\n "
                "0;1;1;;,\n "
                "1;1;1;;;\n }\n }\n}\n",
         "12 count-wrong: \"AnimationKey {\" has more numbers than expected; the rest is "
         "ignored\n"},
        {mesh +
             "}\n}\nanimationset {\n animation m {\n  {frm-a}\n  Options {\n  }\n  AnimationKey {\n"
             " 0;\n 0;\n }\n }\n}\n",
         "12 block-left-out: Block \"Options\" is ignored\n"
         "14 block-passed-over: \"AnimationKey {\" directly follows an ignored block, and is "
         "skipped\n"},
        {keys + mesh + "}\n}\n", ""},
        {keys + "frame b {\n}\n",
         "4 keys-before-frame: The animation comes before the outermost frame \"b\", which gets "
         "its keys\n"
         "0 keys-not-saved: Frame \"b\" has no mesh: its 1 key is not saved\n"},
        {"frame b {\n frame a {\n }\n}\n" + keys + mesh + "}\n}\n",
         "8 keys-before-frame: The animation comes before the outermost frame \"a\"; its keys are "
         "lost\n"
         "16 second-root: Only the last of 2 outermost frames, \"a\", is kept\n"},
    };
    expectFindings(rows);
}

} // namespace
} // namespace korvane
