#include "app/TAboutBox.h"

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

TEST(CommandLine, HelpAndVersionAreAnsweredWithoutADisplay) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    program.setProcessEnvironment(environment);
    const std::pair<const char*, const char*> answers[] = {
        {"--version", "Korvane II Model Editor "}, {"--help", "Usage: korvane-editor "}};
    for (const auto& [argument, answer] : answers) {
        program.start(QStringLiteral(KORVANE_EDITOR), {QString::fromLatin1(argument)});
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0) << argument;
        EXPECT_TRUE(program.readAllStandardOutput().startsWith(answer)) << argument;
    }
}

} // namespace
} // namespace korvane::test
