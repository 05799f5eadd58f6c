#include "app/shell/Logout.h"

#include "support/ChildProcess.h"
#include "support/MainFormTest.h"

namespace korvane::test {
namespace {

using LogoutTest = MainFormTest;

TEST_F(LogoutTest, AsksIfPermittedAndKeepsUnsavedWork) {
    start();
    run("FileNew1");
    int kept = 0;
    Logout logout(form(), [&kept] { ++kept; });
    QEvent quit(QEvent::Quit);
    EXPECT_FALSE(logout.eventFilter(qApp, &quit)) << "the session has not ended";
    const auto mayEnd = [&](bool asks) { return logout.mayEnd([=] { return asks; }); };

    answerCloseQuestion(QStringLiteral("Untitled 1"), QMessageBox::Cancel);
    EXPECT_FALSE(mayEnd(true));
    EXPECT_TRUE(mayEnd(false));
    answer<TAboutBox>([&](TAboutBox& box) {
        EXPECT_TRUE(mayEnd(true)) << "no question over an open dialog";
        EXPECT_EQ(endOfChild([&](int) { logout.eventFilter(qApp, &quit); }), "exit 0");
        box.reject();
    });
    run("HelpAbout1");
    EXPECT_EQ(kept, 3);
    EXPECT_EQ(captions(), QStringList(QStringLiteral("Untitled 1")));

    form().showMinimized();
    answerCloseQuestion(QStringLiteral("Untitled 1"), QMessageBox::No);
    EXPECT_TRUE(mayEnd(true));
    EXPECT_FALSE(form().isMinimized()) << "the question must be visible";
    EXPECT_EQ(captions(), QStringList(QStringLiteral("Untitled 1")))
        << "another program may stop the logout";
    logout.eventFilter(qApp, &quit);
    EXPECT_TRUE(captions().isEmpty());
}

} // namespace
} // namespace korvane::test
