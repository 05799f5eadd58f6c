#include "app/shell/TAboutBox.h"

#include "support/MainFormTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QProcess>
#include <QPushButton>

namespace korvane::test {
namespace {

class TAboutBoxTest : public MainFormTest {};

TEST_F(TAboutBoxTest, TellsWhatAReportNeedsAndCopiesIt) {
    start();
    answer([](QWidget& shown) {
        auto& box = dynamic_cast<TAboutBox&>(shown);
        const QString report = box.report();
        EXPECT_TRUE(report.startsWith(QStringLiteral("Korvane II Model Editor\nVersion ")));
        EXPECT_TRUE(report.contains(QStringLiteral("\nQt ") + QString::fromLatin1(qVersion())));
        EXPECT_TRUE(report.contains(QStringLiteral("\nOpenGL: ")));
        EXPECT_TRUE(child<QPushButton>(box, "OKButton").isDefault());
        child<QPushButton>(box, "CopyButton").click();
        EXPECT_EQ(QApplication::clipboard()->text(), report);
        child<QPushButton>(box, "OKButton").click();
        EXPECT_FALSE(box.isVisible());
    });
    run("HelpAbout1");
}

TEST(CommandLine, IsReadBeforeTheToolkitLooksForADisplay) {
    const std::string version = "Korvane II Model Editor ";
    const std::string help = "Usage: korvane-editor ";
    const struct {
        QString words;
        int status;
        std::string output;
    } rows[] = {
        {QStringLiteral("--version"), 0, version},
        {QStringLiteral("--help"), 0, help},
        {QStringLiteral("-h --version"), 0, help},
        {QStringLiteral("--help a.xsi"), 0, help},
        {QStringLiteral("a.xsi -platform --version"), 0, version},
        {QStringLiteral("a.xsi"), 1, ""},
        {QStringLiteral("-- --help"), 1, ""},
        {QStringLiteral("-platform offscreen --display :0 a.x"), 1, ""}, // options of the toolkit
        {QString(), 1, ""},
    };
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.remove(QString::fromLatin1(name));
    }
    program.setProcessEnvironment(environment);
    for (const auto& row : rows) {
        program.start(QStringLiteral(KORVANE_EDITOR), row.words.split(u' ', Qt::SkipEmptyParts));
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), row.status);
        const std::string output = program.readAllStandardOutput().toStdString();
        EXPECT_EQ(output.substr(0, row.output.size()), row.output) << row.words.toStdString();
        EXPECT_EQ(output.empty(), row.status == 1);
        EXPECT_EQ(program.readAllStandardError().toStdString(),
                  row.status == 0 ? ""
                                  : "korvane-editor: There is no display: neither DISPLAY nor "
                                    "WAYLAND_DISPLAY is set.\n");
    }
}

} // namespace
} // namespace korvane::test
