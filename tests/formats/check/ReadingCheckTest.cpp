#include "support/Findings.h"

#include <string>

namespace korvane {
namespace {

using test::expectTold;
using Row = test::CheckedText;

/// A frame with a mesh, both not closed.
const std::string mesh = "frame a {\nmesh a {\n1;\n0;0;0;;\n0;\n";

TEST(ReadingCheck, ReportsWhereBlocksAndFilesEnd) {
    const Row rows[] = {
        {"frame a {\n mesh a {\n  2;\n  1;2;x;;\n",
         "5 ended-early: Reading ends here: \"x\" is no number, and the rest of the file is left "
         "out\n"},
        {"frame a {\n mesh a {\n  2;\n  1;2;\n\n",
         "5 ended-early: The file ends where a number is expected\n"},
        {"frame a {\n mesh a {\n  1;\n  1;-1.#IND00;2;;\n",
         "5 not-finite: Reading ends here: \"IND00\" is not finite, and the rest of the file is "
         "left out\n"},
        {"frame a {\n mesh a {\n  1;\n  1;2;-nan;\n",
         "5 not-finite: Reading ends here: \"-nan\" is not finite, and the rest of the file is "
         "left out\n"},
        {"frame a {\n mesh a {\n  1;\n  1;2;1e39;\n",
         "5 not-finite: Reading ends here: \"1e39\" is too large, and the rest of the file is left "
         "out\n"},
        {"frame a {\n mesh a\n {\n",
         "4 brace-on-next-line: Reading ends here: the brace stands in the line below its "
         "keyword, and the rest of the file is left out\n"},
        {"frame a {\n frame b\n {\n  x {\n  }\n }\n}\n",
         "4 brace-on-next-line: The brace stands in the line below \"frame b\", and all of the "
         "block is left out\n"},
        {"frame a {\n}\nanimationset x\n\n{\n  animation a {\n  }\n}\n",
         "6 brace-on-next-line: The brace stands in the line below \"animationset x\", and all of "
         "the block is left out\n"},
        {"frame a {\n frame b {\n }\n", "2 file-ends: The file ends within frame \"a\"\n"},
        {"frame a {\n}\nanimationset {\n", "4 file-ends: The file ends within an animation\n"},
        {"frame a {\n frame b { }\n}\n",
         "3 closed-on-one-line: Frame \"b\" is closed in the line that opens it, but goes on to "
         "the next closing brace\n"},
        {"frame a {\n {ref}\n x {\n }\n}\n",
         "3 closed-on-one-line: \"{ref}\" leaves out what follows up to the next closing brace\n"},
        {"", "0 no-frame: There is no frame in the file\n"},
        {"frame a {\n mesh a {\n  1;\n  ;1;2;;\n",
         "5 ended-early: Reading ends here: \";\" is no number, and the rest of the file is left "
         "out\n"},
        {"frame a {\n frame b {\n  {ref}\n  x {\n  }\n }\n",
         "4 closed-on-one-line: \"{ref}\" leaves out what follows up to the next closing brace\n"},
        {"frame r {\n frame a {\n  frame b { }\n }\n",
         "2 file-ends: The file ends within frame \"r\"\n"
         "4 closed-on-one-line: Frame \"b\" is closed in the line that opens it, but goes on to "
         "the next closing brace\n"},
        {"frame a {\n}\nanimationset {\n x\n {\n }\n\n {y}\n }\n",
         "5 block-left-out: Block \"x\" is left out\n"
         "9 closed-on-one-line: \"{y}\" leaves out what follows up to the next closing brace\n"},
    };
    expectTold(rows);
}

TEST(ReadingCheck, ReportsBlocksLeftOut) {
    const Row rows[] = {
        {"mesh {\n 1;\n normals {\n }\n}\nframe a {\n}\n",
         "2 mesh-outside-frame: A mesh stands outside of all frames, and is left out\n"},
        {"template mesh {\n x;\n}\ntemplate mesh\n{\n}\nheader {\n}\nframe a {\n}\n", ""},
        {"Matrix4x4 frameMatrix;\n}\nframe c {\n}\n",
         "2 block-as-frame: \"Matrix4x4\" is read as a frame, \"atrix;\"\n"},
        {"frame a {\n SI_FrameBasePoseMatrix {\n 1;\n }\n}\n",
         "3 base-pose-as-frame: \"SI_FrameBasePoseMatrix\" is read as a frame, "
         "\"aseposematrix\"\n"},
        {"frame a {\n // a frame x {\n }\n // frame y {\n }\n}\n",
         "3 block-as-frame: \"//\" (and 1 more) is read as a frame, \"x\"\n"},
        {"frame a {\n SkinWeights {\n }\n x\n {\n }\n skinweights {\n }\n}\nSI_Camera c {\n "
         "1;\n}\n",
         "3 block-left-out: Block \"SkinWeights\" (and 1 more) is left out\n"
         "5 block-left-out: Block \"x\" is left out\n"
         "11 block-left-out: Block \"SI_Camera\" is left out\n"},
        {"{\n}\nframe a {\n {\n }\n x {\n }\n}\n",
         "2 block-left-out: A block without a name (and 1 more) is left out\n"
         "7 block-left-out: Block \"x\" is left out\n"},
        {"frame a {\n // a mesh\n0;\n0;\n}\n}\n",
         "3 block-as-mesh: \"//\" is read as a mesh of frame \"a\"\n"},
    };
    expectTold(rows);
}

TEST(ReadingCheck, ReportsLossesOfFrames) {
    const std::string matrix = "1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1";
    const Row rows[] = {
        {"frame a {\n}\n", ""},
        {"frame a {\n}\nframe b {\n}\nframe c {\n}\n",
         "4 second-root: Only the last of 3 outermost frames is kept, \"c\"\n"},
        {"Frame frm-Body__e2 {\n Frame B {\n }\n mesh b {\n0;\n0;\n}\n}\n",
         "2 name-case: Frame \"Body\" (and 1 more) loses its capitals\n"},
        {"frame a {\n frame left hand {\n }\n frame b__L1 {\n }\n}\n",
         "3 name-cut: The name of frame \"left\" is cut: \"hand\" is left out\n"
         "5 name-cut: The name of frame \"b\" is cut: \"__l1\" is left out\n"},
        {"Frame {\n Frame  b {\n }\n}\n",
         "2 name-odd: The name of the frame begins with a blank or a brace: \"{\"\n"
         "3 name-odd: The name of the frame begins with a blank or a brace: \" b\"\n"},
        {"frame a {\nFrameTransformMatrix {\n" + matrix + ";\n}\nFrameTransformMatrix {\n" +
             matrix + ",9;\n}\n}\n",
         "6 second-list: A further \"FrameTransformMatrix\" in frame \"a\": the one before is left "
         "out\n"
         "6 count-wrong: More numbers follow in \"FrameTransformMatrix {\" than are read, and are "
         "left out\n"},
    };
    expectTold(rows);
}

TEST(ReadingCheck, ReportsLossesOfLists) {
    const std::string material = "Material {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n}\n";
    const Row rows[] = {
        {mesh + "}\nmesh b {\n0;\n0;\n}\n}\n",
         "8 second-mesh: A further mesh in frame \"a\": its faces lead to the vertices of the "
         "first\n"},
        {mesh + "MeshMaterialList {\n2;\n0;\n{Red}\n{ blue }\n}\n}\n}\n",
         "10 material-by-name: Material \"Red\" (and 1 more) is only named here, and adds no "
         "slot\n"},
        {mesh + "MeshMaterialList {\n1;\n0;\nMaterial {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n"
                "TextureFilename {\n\"maps/a.tga\";\n}\n}\n}\n}\n}\n",
         "15 texture-folder: Of texture \"maps/a.tga\" only \"a.tga\" is kept\n"},
        {mesh + "MeshMaterialList {\n1;\n0;\nMaterial {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n"
                "TextureFilename { \"a.tga\"; }\n}\n}\n}\n}\n",
         "15 closed-on-one-line: \"TextureFilename { \"a.tga\"; }\" is not read: the name is "
         "looked "
         "for in the lines below\n"
         "16 ended-early: Reading ends here: no quotation mark follows\n"},
        {mesh + "MeshMaterialList {\n1;\n0;\nSI_Material {\n1;1;1;1;;\n1;\n1;1;1;;\n1;1;1;;\n2;\n"
                "0;0;0;;\nSI_Texture2D {\n\"a.tga\";\n4;\n256;256;\n}\n}\n}\n}\n}\n",
         "17 texture-parameters: Of texture \"a.tga\" only the name is read\n"},
        {"frame a {\nmesh a { // of 4\n1;\n0;0;0;;\n0;\nmesh2 { // 5\n}\n}\n}\n",
         "7 block-left-out: Block \"mesh2\" is left out\n"},
        {"frame a {\nmesh a { 4;\n0;0;0;,\n}\n}\n",
         "3 numbers-behind-brace: \"mesh a { 4;\" holds numbers behind its brace, which are left "
         "out\n"},
        {mesh + "1;2;3;;\n0;\n}\n}\n",
         "3 count-wrong: More numbers follow in \"mesh a {\" than are read, and are left out\n"},
        {mesh + "MeshNormals {\n1;\n0;0;1;;\n0;\n3;0,0,0;;\n}\n}\n}\n",
         "7 count-wrong: More numbers follow in \"MeshNormals {\" than are read, and are left "
         "out\n"},
        {mesh + "MeshMaterialList {\n1;\n1;\n0,\n0;;\n" + material + material + "}\n}\n}\n",
         "7 count-wrong: More numbers follow in \"MeshMaterialList {\" than are read, and are left "
         "out\n"
         "7 count-wrong: The list holds more materials than it counts: 1 material is left out\n"},
        {mesh + "MeshMaterialList {\n3;\n0;\n" + material + "}\n}\n}\n",
         "7 count-wrong: The list holds fewer materials than it counts: reading takes what stands "
         "behind it for its own\n"},
        {mesh + "MeshNormals {\n0;\n0;\n}\nMeshNormals {\n0;\n0;\n}\n}\n}\n",
         "11 second-list: A further \"MeshNormals\" in frame \"a\" is appended to the one "
         "before\n"},
    };
    expectTold(rows);
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
         "15 keys-joined: A further list of keys for frame \"a\" is joined to the first, and its "
         "type holds for both\n"},
        {mesh + "}\n}\nanimationset {\n animation m {\n  {frm-a}\n  AnimationKey {\n 0;\n 1;\n "
                "0;1;1;;,\n "
                "1;1;1;;;\n }\n }\n}\n",
         "12 count-wrong: More numbers follow in \"AnimationKey {\" than are read, and are left "
         "out\n"},
        {mesh +
             "}\n}\nanimationset {\n animation m {\n  {frm-a}\n  Options {\n  }\n  AnimationKey {\n"
             " 0;\n 0;\n }\n }\n}\n",
         "12 block-left-out: Block \"Options\" is left out\n"
         "14 block-passed-over: \"AnimationKey {\" stands directly behind a block that is left "
         "out, "
         "and is passed over\n"},
        {keys + mesh + "}\n}\n", ""},
        {keys + "frame b {\n}\n",
         "4 keys-before-frame: The animation stands before the outermost frame \"b\", which gets "
         "its keys\n"
         "0 keys-not-saved: Frame \"b\" has no mesh: a saved file lacks its 1 key\n"},
        {"frame b {\n frame a {\n }\n}\n" + keys + mesh + "}\n}\n",
         "8 keys-before-frame: The animation stands before the outermost frame \"a\": its keys are "
         "left out\n"
         "16 second-root: Only the last of 2 outermost frames is kept, \"a\"\n"},
    };
    expectTold(rows);
}

} // namespace
} // namespace korvane
