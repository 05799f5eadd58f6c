#include "render/picture/Bitmap.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>

#include <filesystem>
#include <utility>

namespace korvane {
namespace {

using namespace std::string_literals;

/// The companion program, run with files in a folder of the test's own.
class Tool : public test::TestFiles {
  protected:
    struct Outcome {
        int status;
        std::string output;
        std::string errors;
    };

    void SetUp() override {
        write("good.x", "xof 0302txt 0032\nframe frm-a {\nmesh {\n1;\n1;2;3;;\n1;\n3;0,0,0;;\n"
                        "MeshNormals {\n1;\n0;0;1;;\n0;\n}\n}\n}\n");
        write("bad.x", "nothing");
        write("a.tga", "\0\0\2\0\0\0\0\0\0\0\0\0\2\0\1\0\30\0\1\2\3\4\5\6"s);
        write("a.msh", "");
    }
    /// Runs it with words that blanks part. The output can be sent to a file instead.
    [[nodiscard]] Outcome run(const std::string& words, const QString& outputFile = {}) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8")); // has commas
        environment.insert(QStringLiteral("LOCPATH"),
                           QFileInfo(qEnvironmentVariable("LOCPATH")).absoluteFilePath());
        process.setProcessEnvironment(environment); // the same on every machine: no OpenGL
        process.setStandardOutputFile(outputFile);
        process.setWorkingDirectory(folder());
        process.start(QStringLiteral(KORVANE_TOOL),
                      QString::fromStdString(words).split(u' ', Qt::SkipEmptyParts));
        EXPECT_TRUE(process.waitForFinished());
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    /// The output of a call that went well, without the times that it took.
    static std::string timeless(const Outcome& outcome) {
        EXPECT_EQ(outcome.status, 0);
        static const QRegularExpression time(QStringLiteral("[0-9]+[.][0-9]+ ms\n"));
        return QString::fromStdString(outcome.output)
            .replace(time, QStringLiteral("N ms\n"))
            .toStdString();
    }
};

TEST_F(Tool, InfoShowsTheStructureWithCounts) {
    const Outcome outcome = run("info good.x");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, "good.x: 1 mesh, 1 vertex, 1 face\n"
                              "Frame frm-a\n"
                              "   Mesh a (1 vertex, 1 face)\n"
                              "      MeshNormals (1 normal, 0 faces)\n"
                              "Materials (0 materials)\n");
}

TEST_F(Tool, InfoKeepsControlCharactersFromTheTerminal) {
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

TEST_F(Tool, OutputThatCannotBeWrittenIsAFailure) {
    std::string frames; // more than any buffer holds
    for (int i = 0; i < 20000; ++i) {
        frames += "frame child {\n}\n";
    }
    write("large.x", "xof 0302txt 0032\nframe root {\n" + frames + "}\n");
    for (const char* words : {"info good.x", "info large.x"}) {
        const Outcome outcome = run(words, QStringLiteral("/dev/full"));
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.errors, "standard output: Unable to save\n");
    }
}

TEST_F(Tool, ConvertSavesWhatTheEditorWould) {
    EXPECT_EQ(run("convert good.x o.XSI").status, 0);
    ModelDocument document;
    ASSERT_EQ(FileOpenXSI(path("good.x"), document), ReadStatus::Done);
    EXPECT_EQ(content(path("o.XSI")), test::writeText(document));
    EXPECT_EQ(timeless(run("convert good.x o.xsi --repeat 3")),
              "load median N ms\nsave median N ms\n");
}

TEST_F(Tool, TextureSavesThePictureDecoded) {
    EXPECT_EQ(run("texture a o.png").status, 0);
    const QImage picture(path("o.png"));
    ASSERT_EQ(picture.size(), QSize(2, 1));
    EXPECT_EQ(picture.pixel(0, 0), qRgba(3, 2, 1, 255));
    EXPECT_EQ(picture.pixel(1, 0), qRgba(6, 5, 4, 255));
}

TEST_F(Tool, RenderDrawsThePictureAskedFor) {
    write("t.x", "xof 0302txt 0032\nframe frm-a {\nmesh "
                 "{\n3;\n0;0;0;,\n4;0;0;,\n0;4;0;;\n1;\n3;0,1,2;;\n}\n}\n");
    const auto picture = [this](const char* options) {
        const Outcome outcome =
            run("render t.x o.png --pitch 0 --yaw 3.1415925 --size 64x48 "s + options);
        EXPECT_EQ(outcome.status, 0) << options << outcome.errors;
        return QImage(path("o.png"));
    };
    const auto drawn = [](const QImage& image) {
        return countOtherThan(image.convertToFormat(QImage::Format_RGB32), 0xff000000U);
    };
    const QImage smooth = picture("--mode flat");
    EXPECT_EQ(smooth.size(), QSize(64, 48));
    const std::size_t whole = drawn(smooth);
    EXPECT_GT(whole, 200U);
    EXPECT_LT(drawn(picture("--mode wireframe")), whole);
    EXPECT_LT(drawn(picture("--mode flat --distance 30")), whole / 2);
    EXPECT_EQ(drawn(picture("--mode flat --center 500,0,0")), 0U);
    EXPECT_NE(picture("--yaw 2.8 --api software --view 3d"), picture("--yaw 3.3"));
    EXPECT_EQ(picture("--no-transparent --no-hidden-transparent"), picture(""));
    // the planes show their own sides of the model, whatever the camera does
    const QImage plane = picture("--view xy");
    EXPECT_EQ(plane.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(picture("--view xy --distance 30 --api opengl"), plane);
    EXPECT_NE(picture("--view xz"), plane);
    EXPECT_NE(picture("--view zy"), plane);
    EXPECT_NE(picture("--view xy --center 0.5,0,0"), plane) << "the mark of the camera centre";
    for (const char* view : {"3d", "zy"}) {
        const std::string timed = timeless(run("render t.x o.png --repeat 3 --view "s + view));
        EXPECT_TRUE(timed.starts_with("frame median N ms\npixels ")) << timed;
        EXPECT_FALSE(timed.ends_with(" 0\n")) << timed;
    }
}

TEST_F(Tool, PicturesGoUnderTheNamesThatAreMeantForThem) {
    for (const std::string call : {"render good.x --size 9x9 ", "texture a.tga "}) {
        EXPECT_EQ(run(call + "o.PNG").status, 0);
        const std::string picture = content(path("o.PNG"));
        EXPECT_EQ(picture.substr(0, 4), "\x89PNG");
        const Outcome piped = run(call + "-");
        EXPECT_EQ(piped.status, 0);
        EXPECT_EQ(piped.output, picture);
        EXPECT_FALSE(QFile::exists(path("-")));
        EXPECT_EQ(run(call + "thumbnail --format png").status, 0);
        EXPECT_EQ(content(path("thumbnail")), picture);
        QFile::remove(path("thumbnail"));
        EXPECT_EQ(run(call + "-", QStringLiteral("/dev/full")).errors,
                  "standard output: Unable to save\n");
    }
}

TEST_F(Tool, AnInputIsNotOverwritten) {
    ASSERT_TRUE(QDir().mkpath(path("sub")));
    std::filesystem::create_symlink("good.x", path("soft.xsi").toStdString());
    std::filesystem::create_hard_link(path("good.x").toStdString(), path("hard.xsi").toStdString());
    std::filesystem::create_symlink("../a.tga", path("sub/soft.png").toStdString());
    const std::string model = content(path("good.x"));
    const std::string texture = content(path("a.tga"));
    const std::pair<std::string, std::string> calls[] = {
        {"render --format png good.x ", "sub/../good.x"},
        {"render --format png good.x ", "soft.xsi"},
        {"texture --format png a ", "./a.tga"}, // found without its extension
        {"texture a.tga ", "sub/soft.png"},
        {"convert good.x ", "soft.xsi"},
        {"convert good.x ", "hard.xsi"}};
    for (const auto& [words, out] : calls) {
        const Outcome outcome = run(words + out);
        EXPECT_EQ(outcome.status, 1) << words;
        EXPECT_EQ(outcome.errors, out + ": Would overwrite the input\n");
    }
    EXPECT_EQ(content(path("good.x")), model);
    EXPECT_EQ(content(path("a.tga")), texture);
    // saving a dotXSI file anew is what Save does
    ASSERT_EQ(run("convert good.x own.xsi").status, 0);
    const std::string saved = content(path("own.xsi"));
    EXPECT_EQ(run("convert own.xsi ./own.xsi --repeat 2").status, 0);
    EXPECT_EQ(content(path("own.xsi")), saved);
}

TEST_F(Tool, SaysInOneLineWhyItRefuses) {
    const std::pair<const char*, const char*> refused[] = {
        {"info bad.x", "bad.x: Not a valid .X file\n"},
        {"info none.x", "none.x: No such file\n"},
        {"info a.msh", "a.msh: Not a model file (.xsi or .x)\n"},
        {"convert bad.x o.xsi", "bad.x: Not a valid .X file\n"},
        {"convert good.x no/o.xsi", "no/o.xsi: Unable to save\n"},
        {"render bad.x o.png", "bad.x: Not a valid .X file\n"},
        {"render good.x no/o.png", "no/o.png: Unable to save\n"},
        {"render good.x o.png --api opengl", "good.x: no OpenGL here\n"},
        {"texture none.tga o.png", "none.tga: No such file\n"},
        {"texture bad.x no/o.png", "no/o.png: Unable to save\n"},
        {"render bad.x - --format png", "bad.x: Not a valid .X file\n"}};
    for (const auto& [words, errors] : refused) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 1) << words;
        EXPECT_EQ(outcome.output, "") << words;
        EXPECT_EQ(outcome.errors, errors);
    }
    const auto wrongCalls =
        QStringLiteral("info;convert good.x;convert good.x o.x;texture bad.x;texture a.msh o.tga;"
                       "texture a.msh o --format;render good.x;render good.x bad.x;render good.x o;"
                       "render good.x - --repeat 1;render good.x o.png --format jpg;"
                       "convert good.x o.xsi --repeat 0;convert good.x o.xsi --repeat many;"
                       "convert good.x o.xsi --frobnicate;render good.x o.png --mode pretty;"
                       "render good.x o.png --view yx;render good.x o.png --size 0x9;"
                       "render good.x o.png --size 9;render good.x o.png --center 1,2;"
                       "render good.x o.png --pitch nan;render good.x o.png --distance -1;"
                       "render good.x o.png --repeat 0");
    for (const QString& call : wrongCalls.split(u';')) {
        const std::string words = call.toStdString();
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2) << words;
        EXPECT_EQ(outcome.output, "") << words;
        EXPECT_EQ(outcome.errors.find("korvane-tool: "), 0U) << words;
        EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << words;
    }
    for (const char* words : {"", "frobnicate"}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2) << words;
        EXPECT_NE(outcome.errors.find("usage:"), std::string::npos) << words;
    }
    EXPECT_FALSE(QFile::exists(path("o.xsi")));
    EXPECT_EQ(content(path("bad.x")), "nothing");
    // one bad file does not keep the others from being shown
    const Outcome both = run("info bad.x good.x");
    EXPECT_EQ(both.status, 1);
    EXPECT_NE(both.output.find("Frame frm-a"), std::string::npos);
}

} // namespace
} // namespace korvane
