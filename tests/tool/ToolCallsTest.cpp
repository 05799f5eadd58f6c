// Which calls are valid, where they read from and write to, and how they end.

#include "tool/ToolRun.h"

#include <utility>

namespace korvane::test {
namespace {

using namespace std::string_literals;

class ToolCalls : public ToolRun {};

TEST_F(ToolCalls, GiveTheReasonOfARefusalInOneLine) {
    write("broken.bmp", "BM\x1a\0\0\0\0\0\0\0\x1a\0\0\0\x0c\0\0\0\xff\xff\xff\xff\1\0\x18\0"s);
    write("odd.png", "");
    ASSERT_TRUE(QDir().mkpath(path("folder.x")));
    write("empty.xsi", "xsi 0101txt 0032\nframe frm-a {\n}\n");
    write("cut.xsi", "xsi 0101txt 0032\nframe frm-a {\nmesh a {\n3;\n0;0;0;,\n1;");
    const std::pair<const char*, const char*> refused[] = {
        {"info bad.x", "bad.x: Not a valid .X file\n"},
        {"info none.x", "none.x: No such file\n"},
        {"info good.x/none.x", "good.x/none.x: No such file\n"},
        {"info folder.x", "folder.x: Unable to open file\n"},
        {"info a.msh", "a.msh: Not a model file (.xsi or .x)\n"},
        {"convert bad.x o.xsi", "bad.x: Not a valid .X file\n"},
        {"convert good.x no/o.xsi", "no/o.xsi: Unable to save\n"},
        {"convert good.x --out-dir no", "no: No such folder\n"},
        {"convert good.x --out-dir bad.x", "bad.x: No such folder\n"},
        {"render bad.x o.png", "bad.x: Not a valid .X file\n"},
        {"render good.x no/o.png", "no/o.png: Unable to save\n"},
        {"render good.x o.png --api opengl", "good.x: no OpenGL here\n"},
        {"render bad.x - --format png", "bad.x: Not a valid .X file\n"},
        {"render empty.xsi o.png --strict", "empty.xsi: The model has no mesh\n"},
        {"render cut.xsi o.png --strict", "cut.xsi: The file ends where a number is expected\n"},
        {"texture none.tga o.png", "none.tga: No such file\n"},
        {"texture broken.bmp o.png", "broken.bmp: Cannot be decoded: it is not a bitmap\n"},
        {"texture bad.x o.png", "bad.x: Cannot be decoded: .x files are not read\n"}};
    const qsizetype files = filesInFolder();
    for (const auto& [words, errors] : refused) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 1) << words;
        EXPECT_EQ(outcome.output, "") << words;
        EXPECT_EQ(outcome.errors, errors);
    }
    EXPECT_EQ(filesInFolder(), files);
}

TEST_F(ToolCalls, ThatMakeNoSensePointToTheHelp) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ";frobnicate;--frobnicate;-x info"},
        {"info", ";--;--frobnicate good.x;-x.x;- -;--base . good.x;--json=1 good.x"},
        {"convert", ";good.x;good.x o.x;good.x o.xsi --repeat 0;good.x o.xsi --repeat many;"
                    "good.x o.xsi --frobnicate;good.x o.xsi p.xsi;--out-dir .;--out-dir . -;"
                    "--out-dir . good.x sub/good.xsi;--out-dir . good.x good.x;- o.xsi --repeat 2;"
                    "--repeat 2 --out-dir . good.x;good.x - --repeat 1;good.x o.xsi --base ."},
        {"render", ";good.x;good.x bad.x;good.x o;good.x - --repeat 1;good.x o.png --format jpg;"
                   "good.x o.png --mode pretty;good.x o.png --view yx;good.x o.png --size 0x9;"
                   "good.x o.png --size 9;good.x o.png --size 1.5x2;good.x o.png --center 1,2;"
                   "good.x o.png --pitch nan;good.x o.png --yaw 90grad;good.x o.png --yaw deg;"
                   "good.x o.png --distance -1;good.x o.png --distance 3deg;"
                   "good.x o.png --repeat 0;good.x o.png --background;"
                   "good.x o.png --background glass;good.x o.png --background transparent;"
                   "good.x o.png --view xy --api software;good.x o.png --view xy --mode flat;"
                   "good.x o.png --view xz --pitch 1;good.x o.png --view xz --yaw 1;"
                   "good.x o.png --view zy --distance 1;good.x o.png --view zy --no-transparent;"
                   "good.x o.png --view zy --no-hidden-transparent;- o.png --strict"},
        {"texture", ";bad.x;a.msh o.tga;a.msh o --format;- o.png;- o.png --type gif;"
                    "a.tga o.png --type tga;--out-dir . a.tga a.bmp"}};
    const qsizetype files = filesInFolder();
    for (const auto& [command, calls] : rows) {
        for (const QString& call : QString::fromLatin1(calls).split(u';')) {
            const std::string words = command + " "s + call.toStdString();
            const Outcome outcome = run(words);
            const std::string help =
                "Try 'korvane-tool "s + command + (*command == '\0' ? "" : " ") + "--help'.\n";
            EXPECT_EQ(outcome.status, 2) << words;
            EXPECT_EQ(outcome.output, "") << words;
            EXPECT_TRUE(outcome.errors.starts_with("korvane-tool: ")) << words;
            EXPECT_TRUE(outcome.errors.ends_with(". " + help)) << words << outcome.errors;
            EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << words;
        }
    }
    EXPECT_EQ(filesInFolder(), files);
}

TEST_F(ToolCalls, ReadAndWritePipes) {
    write("sub/m.xsi", "xsi 0101txt 0032\nframe frm-a {\nmesh a {\n3;\n0;0;0;,\n1;0;0;,\n0;1;0;;\n"
                       "1;\n3;0,1,2;;\nMeshMaterialList {\n1;\n1;\n0;;\nSI_Material {\n1;1;1;1;;\n"
                       "0;\n0;0;0;;\n0;0;0;;\n2;\n0;0;0;;\nSI_Texture2D {\n\"a.tga\";\n}\n}\n}\n"
                       "}\n}\n");
    write("sub/b.tga", content(path("a.tga")));
    const struct {
        const char* script;
        int status;
        const char* output;
        const char* errors;
    } rows[] = {
        {"$T convert good.x o.xsi && $T convert - - < good.x | cmp - o.xsi", 0, "", ""},
        {"$T convert - p.xsi < good.x && cmp p.xsi o.xsi", 0, "", ""},
        {"cat good.x | $T info - | head -1", 0, "standard input: 1 mesh, 1 vertex, 1 face\n", ""},
        {"$T render good.x r.png; $T render - - < good.x | cmp - r.png", 0, "", ""},
        {"$T texture a.tga t.png; $T texture - - --type tga < a.tga | cmp - t.png", 0, "", ""},
        // textures are found beside the file, or in the folder of --base
        {"cd sub; $T render m.xsi r.png; rm -f n.png; cd ..; rm a.tga;"
         "$T info - < sub/m.xsi | grep -c 'not found'; $T render - - --base sub < sub/m.xsi | "
         "cmp - sub/r.png",
         0, "1\n", ""},
        // truncated input keeps what is complete, but needs a header
        {"head -c 44 good.x | $T info - | head -1", 0,
         "standard input: 1 mesh, 0 vertices, 0 faces\n", ""},
        {"$T info - < /dev/null", 1, "", "standard input: Not a model file (.xsi or .x)\n"},
        {"echo xof 0303txt 0032 | $T info -", 1, "", "standard input: Not a valid .X file\n"},
        {"echo XSI | $T info -", 1, "", "standard input: Not a valid .XSI file\n"},
        {"$T info - < .", 1, "", "standard input: Unable to open file\n"},
        {"$T info - <&-", 1, "", "standard input: Unable to open file\n"},
        {"echo x | $T texture - - --type pic", 1, "",
         "standard input: Cannot be decoded: it is not a Softimage picture\n"},
        {"$T info good.x > /dev/full", 1, "", "standard output: Unable to save\n"},
        {"$T --help > /dev/full", 1, "", "standard output: Unable to save\n"},
        {"$T convert good.x - > /dev/full", 1, "", "standard output: Unable to save\n"},
        {"$T render good.x - > /dev/full", 1, "", "standard output: Unable to save\n"},
        {"$T info good.x >&-", 1, "", "standard output: Unable to save\n"},
        // a closed stream must not become that of the output
        {"$T convert good.x q.xsi >&- 2>&- <&-; cmp q.xsi o.xsi", 0, "", ""},
        {"$T convert bad.x q.xsi >&- 2>&- <&-", 1, "", ""}};
    for (const auto& row : rows) {
        const Outcome outcome = shell(row.script);
        EXPECT_EQ(outcome.status, row.status) << row.script;
        EXPECT_EQ(outcome.output, row.output) << row.script;
        EXPECT_EQ(outcome.errors, row.errors) << row.script;
    }
}

TEST_F(ToolCalls, AClosedPipeEndsThemSilently) {
    std::string frames; // more than a pipe holds
    for (int i = 0; i < 20000; ++i) {
        frames += "frame child {\n}\n";
    }
    write("large.x", "xof 0302txt 0032\nframe root {\n" + frames + "}\n");
    for (const char* call : {"info large.x", "info --json large.x", "convert large.x -"}) {
        const std::string script =
            "{ $T "s + call + "; echo $? > status; } | head -c 1 > /dev/null";
        EXPECT_EQ(shell(script).errors, "") << call;
        EXPECT_EQ(content(path("status")), "1\n") << call;
        EXPECT_EQ(shell("$T "s + call + " > /dev/full").errors,
                  "standard output: Unable to save\n");
    }
}

TEST_F(ToolCalls, AcceptNamesOfAnyBytes) {
    const std::pair<std::string, std::string> names[] = {
        {"a\nb.xsi", "a\\x0ab.xsi"},
        {"-x.xsi", "-x.xsi"},
        {"--help.xsi", "--help.xsi"},
        {"\xff.xsi", "\xff.xsi"},
        {"\xed\xa0\x80.xsi", "\xed\xa0\x80.xsi"}, // half of a surrogate pair
        {"\xef\xbb\xbf.xsi", "\xef\xbb\xbf.xsi"}, // a byte order mark
        {"g\xc3\xbc\xf0\x9f\x98\x80\xe9.xsi", "g\xc3\xbc\xf0\x9f\x98\x80\xe9.xsi"},
        {"%1 *.xsi", "%1 *.xsi"}};
    for (const auto& [name, shown] : names) {
        for (const std::string folder : {"", "sub\xfe/"}) {
            const std::string file = folder + name;
            const Outcome outcome =
                shell("rm -rf w; mkdir -p 'w/sub\xfe'; cd w; F='" + file +
                      "'; cat ../good.x > \"$F\"; chmod 640 \"./$F\"; ln -s \"./$F\" l.xsi;"
                      "$T convert ../good.x o.xsi && $T convert -- \"$F\" \"$F.xsi\" &&"
                      "cmp \"./$F.xsi\" o.xsi && $T convert -- \"$F.xsi\" l.xsi && test -L l.xsi &&"
                      "cmp -- \"$F\" o.xsi && stat -c %A \"./$F\";"
                      "ls -A . sub* | grep korvane; $T info -- \"$F\" | head -1");
            const std::string counts = ": 1 mesh, 1 vertex, 1 face\n";
            EXPECT_EQ(outcome.errors, "") << folder << shown;
            EXPECT_TRUE(outcome.output.starts_with("-rw-r-----\n" +
                                                   (folder.empty() ? shown + counts : "sub")))
                << folder << shown << ": " << outcome.output;
            EXPECT_TRUE(outcome.output.ends_with(counts)) << folder << shown;
        }
    }
    // in a folder with such a name
    const Outcome outcome =
        shell("mkdir 'd\xfe'; cd 'd\xfe'; cp ../a.tga A.TGA; $T convert ../good.x o.xsi;"
              "$T convert ../good.x o.xsi; $T texture a o.png; $T render --size 9x9 o.xsi o.png;"
              "ls -A; $T info \"$PWD/no.x\" 2>&1 | LC_ALL=C sed 's|.*/d|d|'");
    EXPECT_EQ(shell("rm -r w d*").status, 0); // the toolkit cannot remove these
    EXPECT_EQ(outcome.output, "A.TGA\no.png\no.xsi\nd\xfe/no.x: No such file\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(ToolCalls, SeveralInputsGoIntoAFolder) {
    ASSERT_TRUE(QDir().mkpath(path("out")));
    write("sub/two.X", content(path("good.x")));
    const struct {
        const char* call;
        const char* errors;
        const char* results;
    } rows[] = {
        {"convert none.x good.x bad.x sub/two.X",
         "none.x: No such file\nbad.x: Not a valid .X file\n", "good.xsi\ntwo.xsi\n"},
        {"render bad.x --size 9x9 good.x", "bad.x: Not a valid .X file\n", "good.png\n"},
        {"texture bad.x a", "bad.x: Cannot be decoded: .x files are not read\n", "a.png\n"},
    };
    for (const auto& row : rows) {
        const Outcome outcome =
            shell("rm -f out/*; $T "s + row.call + " --out-dir out; echo $?; ls out");
        EXPECT_EQ(outcome.output, "1\n"s + row.results) << row.call;
        EXPECT_EQ(outcome.errors, row.errors) << row.call;
    }
    EXPECT_EQ(shell("$T convert --out-dir out/ good.x sub/two.X").status, 0);
    const Outcome both = run("info bad.x good.x");
    EXPECT_EQ(both.status, 1);
    EXPECT_NE(both.output.find("Frame frm-a"), std::string::npos);
}

} // namespace
} // namespace korvane::test
