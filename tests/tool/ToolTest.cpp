#include "render/picture/Bitmap.h"
#include "support/TextModel.h"
#include "tool/ToolRun.h"

#include <QImage>
#include <QRegularExpression>

#include <filesystem>
#include <utility>

namespace korvane::test {
namespace {

using namespace std::string_literals;

class Tool : public ToolRun {
  protected:
    /// Returns the output of a successful call without the measured times.
    static std::string timeless(const Outcome& outcome) {
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        static const QRegularExpression time(QStringLiteral("[0-9]+[.][0-9]+ ms\n"));
        return QString::fromStdString(outcome.output)
            .replace(time, QStringLiteral("N ms\n"))
            .toStdString();
    }
    [[nodiscard]] QImage picture(const std::string& words) const {
        const Outcome outcome = run("render " + words);
        EXPECT_EQ(outcome.status, 0) << words << outcome.errors;
        return QImage(path("o.png"));
    }
};

TEST_F(Tool, HelpAndVersionSucceed) {
    for (const std::string command : {"", "info ", "check ", "convert ", "render ", "texture "}) {
        for (const char* help : {"--help", "-h"}) {
            const Outcome outcome = run(command + help);
            EXPECT_EQ(outcome.status, 0) << command;
            EXPECT_EQ(outcome.errors, "") << command;
            EXPECT_TRUE(outcome.output.starts_with("Usage: korvane-tool " + command)) << command;
        }
        EXPECT_TRUE(run(command + "--version").output.starts_with("korvane-tool ")) << command;
    }
}

TEST_F(Tool, ConvertSavesWhatTheEditorWould) {
    EXPECT_EQ(run("convert good.x o.XSI").status, 0);
    ModelDocument document;
    ASSERT_EQ(FileOpenXSI(path("good.x"), document), ReadStatus::Done);
    EXPECT_EQ(content(path("o.XSI")), writeText(document));
    EXPECT_EQ(timeless(run("convert good.x o.xsi --repeat 3")),
              "load median N ms\nsave median N ms\n");
}

TEST_F(Tool, ConvertReportsLosses) {
    write("lost.x", "xof 0302txt 0032\nframe frm-myframe {\nmesh {\n1;\n1;2;3;;\n0;\n}\n}\n");
    const Outcome loose = run("convert lost.x o.xsi");
    EXPECT_EQ(loose.status, 0);
    EXPECT_EQ(loose.errors,
              "lost.x:2: warning: Frame \"myframe\" is not fully restored from a saved file: its "
              "name contains \"frame\" and the frame has a mesh (lost: mesh) [name-not-saved]\n");
    const Outcome strict = run("convert --strict lost.x p.xsi");
    EXPECT_EQ(strict.status, 1);
    EXPECT_EQ(strict.errors, loose.errors + "p.xsi: Not written: something would be lost\n");
    EXPECT_FALSE(QFile::exists(path("p.xsi")));
    EXPECT_EQ(run("convert --strict good.x p.xsi").errors, "");
}

TEST_F(Tool, TextureSavesThePictureDecoded) {
    EXPECT_EQ(run("texture a o.png").status, 0);
    const QImage picture(path("o.png"));
    ASSERT_EQ(picture.size(), QSize(2, 1));
    EXPECT_EQ(picture.pixel(0, 0), qRgba(3, 2, 1, 255));
    EXPECT_EQ(picture.pixel(1, 0), qRgba(6, 5, 4, 255));
}

TEST_F(Tool, RenderDrawsTheRequestedPicture) {
    write("t.x", "xof 0302txt 0032\nframe frm-a {\nmesh "
                 "{\n3;\n0;0;0;,\n4;0;0;,\n0;4;0;;\n1;\n3;0,1,2;;\n}\n}\n");
    const std::string call = "t.x o.png --size 64x48 ";
    const std::string front = call + "--pitch 0 --yaw 180deg ";
    const auto drawn = [](const QImage& image) {
        return countOtherThan(image.convertToFormat(QImage::Format_RGB32), 0xff000000U);
    };
    const QImage flat = picture(front + "--mode flat");
    EXPECT_EQ(flat.size(), QSize(64, 48));
    const std::size_t whole = drawn(flat);
    EXPECT_GT(whole, 200U);
    EXPECT_LT(drawn(picture(front + "--mode wireframe")), whole);
    EXPECT_LT(drawn(picture(front + "--mode flat --distance 30")), whole / 2);
    EXPECT_EQ(drawn(picture(front + "--mode flat --center 500,0,0")), 0U);
    EXPECT_NE(picture(front + "--yaw 160deg --api software --view 3d"), picture(front));
    EXPECT_EQ(picture(front + "--yaw 2.7925268rad"), picture(front + "--yaw 160deg"));
    EXPECT_EQ(picture(front + "--no-transparent --no-hidden-transparent"), picture(front));
    // each plane shows another side of the model
    const QImage plane = picture(call + "--view xy");
    EXPECT_EQ(plane.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_NE(picture(call + "--view xz"), plane);
    EXPECT_NE(picture(call + "--view zy"), plane);
    EXPECT_NE(picture(call + "--view xy --center 0.5,0,0"), plane)
        << "the mark of the camera centre";
    for (const char* view : {"3d", "zy"}) {
        const std::string timed = timeless(run("render t.x o.png --repeat 3 --view "s + view));
        EXPECT_TRUE(timed.starts_with("frame median N ms\npixels ")) << timed;
        EXPECT_FALSE(timed.ends_with(" 0\n")) << timed;
    }
}

TEST_F(Tool, ABackgroundIsAColorOrNone) {
    // one half of the square is black, the other almost invisible
    write("t.xsi", "xsi 0101txt 0032\nframe frm-a {\nmesh a "
                   "{\n6;\n-4;-4;0;,\n0;-4;0;,\n4;-4;0;,\n-4;4;0;,\n0;4;0;,\n4;4;0;;\n2;\n"
                   "4;0,1,4,3;,\n4;1,2,5,4;;\nMeshMaterialList {\n2;\n2;\n0,\n1;\n"
                   "SI_Material {\n0;0;0;1;;\n0;\n0;0;0;;\n0;0;0;;\n2;\n0;0;0;;\n}\n"
                   "SI_Material {\n1;0;0;0.001;;\n0;\n0;0;0;;\n0;0;0;;\n2;\n0;0;0;;\n}\n}\n}\n}\n");
    const std::string call = "t.xsi o.png --size 60x60 ";
    const QColor skyBlue = QColor(QStringLiteral("skyblue"));
    for (const std::string view : {"--pitch 0 --yaw 180deg ", "--view xy "}) {
        EXPECT_EQ(picture(call + view + "--background skyblue").pixelColor(1, 1), skyBlue);
        EXPECT_EQ(picture(call + view + "--background #87ceeb").pixelColor(1, 1), skyBlue);
        // drawn opaque, everything differs from this background
        const std::string opaque = view.starts_with("--view") ? "" : "--no-transparent ";
        const QImage over = picture(call + view + opaque + "--background #000102");
        const QImage none = picture(call + view + "--background none");
        int covered = 0;
        int wrong = 0;
        for (int y = 0; y < none.height(); ++y) {
            for (int x = 0; x < none.width(); ++x) {
                const bool open = over.pixel(x, y) == 0xff000102U;
                covered += open ? 0 : 1;
                wrong += qAlpha(none.pixel(x, y)) == (open ? 0 : 255) ? 0 : 1;
            }
        }
        EXPECT_EQ(wrong, 0) << view;
        EXPECT_GT(covered, 60) << view;
        EXPECT_TRUE(timeless(run("render --repeat 1 --background none " + call + view))
                        .ends_with("pixels " + std::to_string(covered) + "\n"));
    }
}

TEST_F(Tool, PicturesGoOnlyToNamesMeantForThem) {
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
    }
}

TEST_F(Tool, AnInputIsNotOverwritten) {
    ASSERT_TRUE(QDir().mkpath(path("sub")));
    std::filesystem::create_symlink("good.x", path("soft.xsi").toStdString());
    std::filesystem::create_hard_link(path("good.x").toStdString(), path("hard.xsi").toStdString());
    std::filesystem::create_symlink("../a.tga", path("sub/soft.png").toStdString());
    std::filesystem::create_symlink("../good.x", path("sub/bad.xsi").toStdString());
    ASSERT_EQ(run("convert good.x own.xsi").status, 0);
    const std::string model = content(path("good.x"));
    const std::string texture = content(path("a.tga"));
    const std::string saved = content(path("own.xsi"));
    const std::pair<std::string, std::string> calls[] = {
        {"$T render --format png good.x sub/../good.x", "sub/../good.x"},
        {"$T render --format png good.x soft.xsi", "soft.xsi"},
        {"$T texture --format png a ./a.tga", "./a.tga"}, // found without its extension
        {"$T texture a.tga sub/soft.png", "sub/soft.png"},
        {"$T convert good.x soft.xsi", "soft.xsi"},
        {"$T convert good.x hard.xsi", "hard.xsi"},
        {"cp good.x bad.x; $T convert --out-dir sub good.x bad.x", "sub/bad.xsi"},
        {"$T convert - own.xsi < own.xsi", "own.xsi"},
        {"$T convert own.xsi - 1<> own.xsi", "standard output"}};
    for (const auto& [script, out] : calls) {
        const Outcome outcome = shell(script);
        EXPECT_EQ(outcome.status, 1) << script;
        EXPECT_EQ(outcome.errors, out + ": Would overwrite the input\n");
    }
    EXPECT_EQ(content(path("good.x")), model);
    EXPECT_EQ(content(path("a.tga")), texture);
    EXPECT_EQ(content(path("own.xsi")), saved);
    // Save overwrites a dotXSI file in the same way
    EXPECT_EQ(run("convert own.xsi ./own.xsi --repeat 2").status, 0);
    EXPECT_EQ(run("convert own.xsi --out-dir .").status, 0);
    EXPECT_EQ(content(path("own.xsi")), saved);
}

} // namespace
} // namespace korvane::test
