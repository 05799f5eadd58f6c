#include "support/ModelText.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace korvane {
namespace {

/// The companion program, run with files in a folder of the test's own.
class Tool : public testing::Test {
  protected:
    struct Outcome {
        int status;
        std::string output;
        std::string errors;
    };

    void SetUp() override {
        QFile model(path("good.x"));
        ASSERT_TRUE(model.open(QIODevice::WriteOnly));
        model.write("xof 0302txt 0032\nframe frm-a {\nmesh {\n1;\n1;2;3;;\n1;\n3;0,0,0;;\n"
                    "MeshNormals {\n1;\n0;0;1;;\n0;\n}\n}\n}\n");
        QFile bad(path("bad.x"));
        ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
        bad.write("nothing");
        QFile other(path("a.msh"));
        ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    }
    [[nodiscard]] QString path(const char* name) const {
        return folder_.filePath(QString::fromLatin1(name));
    }
    [[nodiscard]] Outcome run(const QStringList& words) const {
        QProcess process;
        process.setWorkingDirectory(folder_.path());
        process.start(QStringLiteral(KORVANE_TOOL), words);
        EXPECT_TRUE(process.waitForFinished());
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

  private:
    QTemporaryDir folder_;
};

TEST_F(Tool, InfoShowsTheStructureWithCounts) {
    const Outcome outcome = run({QStringLiteral("info"), QStringLiteral("good.x")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, "good.x: 1 mesh, 1 vertex, 1 face\n"
                              "Frame frm-a\n"
                              "   Mesh a (1 vertex, 1 face)\n"
                              "      MeshNormals (1 normal, 0 faces)\n"
                              "Materials (0 materials)\n");
}

TEST_F(Tool, ConvertSavesWhatTheEditorWould) {
    EXPECT_EQ(
        run({QStringLiteral("convert"), QStringLiteral("good.x"), QStringLiteral("o.XSI")}).status,
        0);
    ModelDocument document;
    ASSERT_EQ(FileOpenXSI(path("good.x"), document), ReadStatus::Done);
    QFile saved(path("o.XSI"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll().toStdString(), test::writeText(document));
}

TEST_F(Tool, SaysInOneLineWhyItRefuses) {
    const struct {
        const char* words;
        int status;
        const char* errors;
    } rows[] = {
        {"info bad.x", 1, "bad.x: Not a valid .X file\n"},
        {"info none.x", 1, "none.x: No such file\n"},
        {"info a.msh", 1, "a.msh: Not a model file (.xsi or .x)\n"},
        {"convert bad.x o.xsi", 1, "bad.x: Not a valid .X file\n"},
        {"convert good.x no/o.xsi", 1, "no/o.xsi: Unable to save\n"},
        {"convert good.x o.x", 2, nullptr},
        {"convert good.x", 2, nullptr},
        {"info", 2, nullptr},
        {"", 2, nullptr},
        {"frobnicate", 2, nullptr},
    };
    for (const auto& row : rows) {
        const Outcome outcome =
            run(QString::fromLatin1(row.words).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        EXPECT_EQ(outcome.status, row.status) << row.words;
        EXPECT_EQ(outcome.output, "") << row.words;
        if (row.errors != nullptr) {
            EXPECT_EQ(outcome.errors, row.errors) << row.words;
        } else {
            EXPECT_NE(outcome.errors.find("usage:"), std::string::npos) << row.words;
        }
    }
    EXPECT_FALSE(QFile::exists(path("o.xsi")));
    // one bad file does not keep the others from being shown
    const Outcome both =
        run({QStringLiteral("info"), QStringLiteral("bad.x"), QStringLiteral("good.x")});
    EXPECT_EQ(both.status, 1);
    EXPECT_NE(both.output.find("Frame frm-a"), std::string::npos);
}

} // namespace
} // namespace korvane
