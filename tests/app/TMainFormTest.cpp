#include "app/TMainForm.h"

#include "model/TMDIChild.h"
#include "support/GuiTest.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>

namespace korvane::test {
namespace {

const QString title = QStringLiteral("Korvane II Model Editor");

class TMainFormTest : public GuiTest {
  protected:
    TMainForm& start(const QStringList& paths = {}) {
        form_ = std::make_unique<TMainForm>(paths);
        form_->show();
        settle();
        return *form_;
    }

    /// Triggers the command as a user can: not while it is disabled.
    void run(const char* action) {
        settle();
        auto& command = child<QAction>(*form_, action);
        ASSERT_TRUE(command.isEnabled()) << action;
        command.trigger();
        settle();
    }

    [[nodiscard]] std::string enabledCommands() const {
        settle();
        std::string enabled;
        for (const char* name :
             {"FileNew1", "FileOpen1", "FileSave", "FileSaveAs", "FileClose1", "FileExit1"}) {
            if (child<QAction>(*form_, name).isEnabled()) {
                enabled += std::string(name) + ' ';
            }
        }
        return enabled;
    }

    [[nodiscard]] QStringList captions() const {
        QStringList captions;
        for (const TMDIChild* document : form_->documents()) {
            captions += document->windowTitle();
        }
        return captions;
    }

    [[nodiscard]] QString status() const { return child<QLabel>(*form_, "StatusPanel").text(); }

    std::unique_ptr<TMainForm> form_;
};

QStringList itemTexts(const QWidget& bar) {
    QStringList texts;
    for (const QAction* action : bar.actions()) {
        const QString shortcut = action->shortcut().toString();
        texts += action->isSeparator() ? QStringLiteral("-")
                 : shortcut.isEmpty()  ? action->text()
                                       : action->text() + u' ' + shortcut;
    }
    return texts;
}

TEST_F(TMainFormTest, StartsEmptyAndMaximisedWithItsCommands) {
    const TMainForm& form = start();
    EXPECT_EQ(form.windowTitle(), title);
    EXPECT_EQ(QCoreApplication::applicationName(), title);
    EXPECT_TRUE(form.isMaximized());
    EXPECT_EQ(itemTexts(child<QMenu>(form, "File1")).join(u'|'),
              QStringLiteral("&New Ctrl+N|&Open File Ctrl+O|Save|Save As|&Close|-|E&xit"));
    EXPECT_EQ(itemTexts(child<QToolBar>(form, "ToolBar1")).join(u'|'),
              QStringLiteral("&New Ctrl+N|&Open Ctrl+O|Save"));
    EXPECT_EQ(enabledCommands(), "FileNew1 FileOpen1 FileExit1 ");
}

TEST_F(TMainFormTest, NewWindowsAreNumberedByTheOpenOnes) {
    start();
    run("FileNew1");
    run("FileNew1");
    EXPECT_EQ(enabledCommands(), "FileNew1 FileOpen1 FileSave FileSaveAs FileClose1 FileExit1 ");
    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(captions(), QStringList({QStringLiteral("Untitled 1")}));
    run("FileNew1");
    EXPECT_EQ(captions().constLast(), QStringLiteral("Untitled 2"));
}

TEST_F(TMainFormTest, OpensTextModelsOfTheCommandLineOnceOnly) {
    const QString a = file("a.xsi", smallModel());
    const QString c = file("c.X", smallModel());
    TMainForm& form = start({a, file("b.msh", smallModel()), c, path("-x"), path("gone.XSI")});
    EXPECT_EQ(captions(), QStringList({a, c, path("gone.XSI")}));
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &activation);
    settle();
    EXPECT_EQ(captions().size(), 3);
}

TEST_F(TMainFormTest, ClosingGoesBackToTheWindowUsedBefore) {
    start();
    run("FileNew1");
    run("FileNew1");
    run("FileNew1");
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(form_->activeDocument()->windowTitle(), QStringLiteral("Untitled 2"));
}

TEST_F(TMainFormTest, OpenDialogOpensTheChosenFile) {
    const QString name = file("small.xsi", smallModel());
    start();
    answer([&](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.nameFilters().join(u'|'),
                  QStringLiteral("Compatible files (*.msh *.xsi *.x)|XSI file (*.xsi)|"
                                 "MSH file (*.msh)|X file (*.x)"));
        dialog.reject();
    });
    run("FileOpenItem");
    EXPECT_EQ(captions(), QStringList());
    answerFileDialog(QStringLiteral("OpenDialog1"), name);
    run("FileOpen1");
    EXPECT_EQ(captions(), QStringList({name}));
    EXPECT_EQ(enabledCommands(), "FileNew1 FileOpen1 FileSaveAs FileClose1 FileExit1 ");
    form_->activeDocument()->document()->Modified = true;
    EXPECT_EQ(enabledCommands(), "FileNew1 FileOpen1 FileSave FileSaveAs FileClose1 FileExit1 ");
    run("FileSave");
    EXPECT_FALSE(form_->activeDocument()->document()->Modified);
}

TEST_F(TMainFormTest, StatusAndTitleFollowTheActiveWindow) {
    const QString name = file("small.xsi", smallModel());
    const TMainForm& form = start({name});
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
    EXPECT_EQ(form.windowTitle(), title + QStringLiteral(" - [%1]").arg(name));
    run("FileNew1");
    EXPECT_EQ(status(), QString());
    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
    form.activeDocument()->showNormal();
    EXPECT_EQ(form.windowTitle(), title);
    run("FileClose1");
    EXPECT_EQ(form.windowTitle(), title);
    EXPECT_EQ(status(), QString());
}

TEST_F(TMainFormTest, ExitAsksForEachUnsavedWindowAndCancelKeepsThemAll) {
    const TMainForm& form = start({file("clean.xsi", smallModel())});
    run("FileNew1");
    run("FileNew1");
    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::Cancel);
    run("FileExit1");
    EXPECT_TRUE(allAnswered());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(captions().size(), 3);

    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::No);
    run("FileExit1");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(captions().size(), 0);
}

TEST_F(TMainFormTest, FileDialogsLeaveNothingBehind) {
    start();
    answerFileDialog(QStringLiteral("OpenDialog1"), {});
    run("FileOpen1");
    EXPECT_TRUE(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).isEmpty());
}

} // namespace
} // namespace korvane::test
