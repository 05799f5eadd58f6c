#include "app/shell/TMainForm.h"

#include "support/MainFormTest.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusTipEvent>
#include <QToolBar>
#include <QToolButton>

namespace korvane::test {
namespace {

const QString title = QStringLiteral("Korvane II Model Editor");

class TMainFormTest : public MainFormTest {
  protected:
    [[nodiscard]] std::string enabledCommands() const {
        return namesOf("FileNew1 FileOpen1 FileSave FileSaveAs FileClose1 FileExit1",
                       &QAction::isEnabled);
    }

    [[nodiscard]] QString status() const { return child<QLabel>(form(), "StatusPanel").text(); }
};

TEST_F(TMainFormTest, StartsEmptyAndMaximised) {
    const TMainForm& frame = start();
    EXPECT_EQ(frame.windowTitle(), title);
    EXPECT_EQ(QCoreApplication::applicationName(), title);
    EXPECT_TRUE(frame.isMaximized());
    EXPECT_EQ(status(), QString());
    EXPECT_EQ(child<QMdiArea>(frame, "MDIArea").background(),
              frame.palette().brush(QPalette::Dark));
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        EXPECT_TRUE(widget == &frame || !widget->isVisible()) << widget->objectName().toStdString();
    }
}

TEST_F(TMainFormTest, ButtonsTellWhatTheyDoAndSomeCommandsAreOutOfReach) {
    for (const auto* button : child<QToolBar>(start(), "ToolBar1").findChildren<QToolButton*>()) {
        if (button->defaultAction() != nullptr) {
            EXPECT_FALSE(button->icon().isNull()) << button->accessibleName().toStdString();
            EXPECT_FALSE(button->statusTip().isEmpty()) << button->accessibleName().toStdString();
        }
    }
    for (const char* name : {"Rdots", "D3DAction"}) {
        EXPECT_TRUE(action(name).associatedObjects().isEmpty()) << name;
    }
}

TEST_F(TMainFormTest, LabelsAreReadAsWhatTheyShow) {
    start({write("small.xsi", smallModel())});
    int labels = 0;
    for (const QWidget* widget : QApplication::allWidgets()) {
        const QString name = widget->objectName();
        if (qobject_cast<const QLabel*>(widget) != nullptr && !name.isEmpty() &&
            !name.startsWith(u"qt_") && name != QStringLiteral("ProgramIcon")) {
            EXPECT_EQ(widget->accessibleName(), QString()) << name.toStdString();
            ++labels;
        }
    }
    EXPECT_GT(labels, 20);
}

TEST_F(TMainFormTest, KeysOfCommandsAreUnambiguous) {
    start();
    QStringList keys;
    for (const QAction* action : form().findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty()) {
            keys += action->shortcut().toString();
        }
    }
    const auto shown = static_cast<qsizetype>(keys.size());
    EXPECT_EQ(keys.removeDuplicates(), 0);
    EXPECT_GE(shown, 5);
    EXPECT_EQ(action("FileOpenItem").text(), QStringLiteral("&Open File\tCtrl+O"));
}

TEST_F(TMainFormTest, CommandsAreEnabledByTheWindowsThereAre) {
    start();
    const char* all =
        "FileNew1 FileOpen1 FileClose1 FileSave FileSaveAs FileExit1 EditUndo1 EditRedo1 "
        "EditCut EditCopy EditPaste Rwire ColorOptionsAction Rflat Rfull Rdots "
        "Rbackwards Rallowtrans D3DAction OpenGLAction SoftwareAction HelpAbout1 "
        "WindowCascade1 WindowArrangeAll1";
    const std::string always = "FileNew1 FileOpen1 FileExit1 ColorOptionsAction D3DAction "
                               "OpenGLAction SoftwareAction HelpAbout1 ";
    EXPECT_EQ(namesOf(all, &QAction::isEnabled), always);
    run("FileNew1");
    const std::string withWindow =
        "FileNew1 FileOpen1 FileClose1 FileSave FileSaveAs FileExit1 Rwire ColorOptionsAction "
        "Rflat Rfull Rdots Rbackwards Rallowtrans D3DAction OpenGLAction SoftwareAction "
        "HelpAbout1 WindowCascade1 WindowArrangeAll1 ";
    EXPECT_EQ(namesOf(all, &QAction::isEnabled), withWindow);
    answerCloseQuestion(QStringLiteral("Untitled 1"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(namesOf(all, &QAction::isEnabled), always);
}

TEST_F(TMainFormTest, NewWindowsAreNumberedByTheOpenOnes) {
    start();
    run("FileNew1");
    run("FileNew1");
    run("FileNew1");
    EXPECT_EQ(enabledCommands(), "FileNew1 FileOpen1 FileSave FileSaveAs FileClose1 FileExit1 ");
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(captions(),
              QStringList({QStringLiteral("Untitled 1"), QStringLiteral("Untitled 2")}));
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Untitled 2")) << "the one used before";
    run("FileNew1");
    EXPECT_EQ(captions().constLast(), QStringLiteral("Untitled 3"));
}

TEST_F(TMainFormTest, OpensTextModelsOfTheCommandLineOnceOnly) {
    const QString a = write("a.xsi", smallModel());
    const QString c = write("c.X", smallModel());
    TMainForm& frame = start({a, write("b.msh", smallModel()), c, QStringLiteral("-dashed.xsi"),
                              QStringLiteral("--help"), path("gone.XSI")});
    EXPECT_EQ(captions(),
              QStringList({a, c, QDir::current().filePath(QStringLiteral("-dashed.xsi")),
                           path("gone.XSI")}));
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&frame, &activation);
    settle();
    EXPECT_EQ(captions().size(), 4);
}

TEST_F(TMainFormTest, OpenDialogOpensTheChosenFile) {
    const QString name = write("small.xsi", smallModel());
    start();
    answerFileDialog(QStringLiteral("OpenDialog1"), name);
    run("FileOpen1");
    EXPECT_EQ(captions(), QStringList({name}));
    EXPECT_EQ(enabledCommands(), "FileNew1 FileOpen1 FileSaveAs FileClose1 FileExit1 ");
    document().Modified = true;
    EXPECT_EQ(enabledCommands(), "FileNew1 FileOpen1 FileSave FileSaveAs FileClose1 FileExit1 ");
    run("FileSave");
    EXPECT_FALSE(document().Modified);
}

TEST_F(TMainFormTest, ComingBackToAWindowPutsTheKeyboardWhereItWas) {
    start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
    settle();
    EXPECT_TRUE(tree().hasFocus());
    QTest::keyClick(&tree(), Qt::Key_Tab);
    settle();
    const std::string chosen = QApplication::focusWidget()->objectName().toStdString();
    EXPECT_NE(chosen, "TreeView1");
    auto& area = child<QMdiArea>(form(), "MDIArea");
    std::string focus;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        settle();
        focus += QApplication::focusWidget()->objectName().toStdString() + ' ';
    }
    EXPECT_EQ(focus, "TreeView1 " + chosen + " TreeView1 " + chosen + " TreeView1 ");
    // hiding for a moment moves the focus as well, out of the user's sight
    run("WindowTileVertical1");
    EXPECT_TRUE(tree().hasFocus());
    window().showMaximized();
    run("WindowCascade1");
    EXPECT_TRUE(tree().hasFocus());
    run("WindowTileVertical1");
    // the press that comes back to a window chooses a control there
    TMDIChild& other = *form().documents().at(1);
    auto& there = child<QTreeView>(other, "TreeView1");
    QTest::mouseClick(there.viewport(), Qt::LeftButton);
    settle();
    EXPECT_EQ(area.activeSubWindow(), &other);
    EXPECT_TRUE(there.hasFocus());
}

TEST_F(TMainFormTest, StatusAndTitleFollowTheActiveWindow) {
    const QString name = write("small.xsi", smallModel());
    const TMainForm& frame = start({name});
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
    EXPECT_EQ(frame.windowTitle(), title + QStringLiteral(" - [%1]").arg(name));
    run("FileNew1");
    EXPECT_EQ(status(), QStringLiteral("0 meshes, 0 faces"));
    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
    frame.activeDocument()->showNormal();
    EXPECT_EQ(frame.windowTitle(), title);
    run("FileClose1");
    EXPECT_EQ(frame.windowTitle(), title);
    EXPECT_EQ(status(), QString());
}

TEST_F(TMainFormTest, StatusTellsOfTheLastCommandUntilTheNext) {
    start({write("small.xsi", smallModel()), write("small.x", "xof 0302txt 0032\n")});
    document().Modified = true;
    run("FileSave");
    EXPECT_EQ(status(), QStringLiteral("Nothing was written: small.x is not a dotXSI file"));
    run("FileClose1");
    select(bodyNode + "/Frame frm-wing");
    child<QPushButton>(window(), "DeleteButton").click();
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
    run("EditUndo1");
    EXPECT_EQ(status(), QStringLiteral("Undone: delete frame"));
    run("EditRedo1");
    EXPECT_EQ(status(), QStringLiteral("Redone: delete frame"));
    run("FileSave");
    EXPECT_EQ(status(), QStringLiteral("small.xsi was written: 1 mesh, 2 faces"));
    child<QPushButton>(window(), "AddButton").click();
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
    // what is pasted counts
    select(bodyNode);
    window().paste(window().copy());
    EXPECT_EQ(status(), QStringLiteral("2 meshes, 4 faces"));
}

TEST_F(TMainFormTest, OpenDialogStartsBesideTheActiveModel) {
    start({write("models/small.xsi", smallModel())});
    answer([this](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.directory().absolutePath(), path("models"));
        dialog.reject();
    });
    run("FileOpen1");
}

TEST_F(TMainFormTest, ExitAsksForEachUnsavedWindowAndCancelKeepsThemAll) {
    const TMainForm& frame = start({write("clean.xsi", smallModel())});
    run("FileNew1");
    run("FileNew1");
    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::Cancel);
    run("FileExit1");
    EXPECT_TRUE(allAnswered());
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(captions().size(), 3);

    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::No);
    run("FileExit1");
    EXPECT_FALSE(frame.isVisible());
    EXPECT_EQ(captions().size(), 0);
}

TEST_F(TMainFormTest, HintsCoverTheMessageWhileTheyShow) {
    TMainForm& frame = start({write("small.xsi", smallModel())});
    QStatusTipEvent shown(action("FileSaveAs").statusTip());
    QCoreApplication::sendEvent(&frame, &shown);
    EXPECT_EQ(status(), QStringLiteral("Save the model to another file"));
    QStatusTipEvent gone{QString()};
    QCoreApplication::sendEvent(&frame, &gone);
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
}

TEST_F(TMainFormTest, WindowMenuListsTheOpenWindowsAndActivatesThem) {
    const QString name = write("a&b.xsi", smallModel());
    const TMainForm& frame = start({name});
    auto& menu = child<QMenu>(frame, "Window1");
    const auto listed = [&menu] {
        Q_EMIT menu.aboutToShow();
        QStringList texts;
        for (const QAction* action : menu.actions().mid(6)) { // behind the commands and a line
            texts += action->text();
        }
        return texts.join(u'|');
    };
    run("FileNew1");
    const QString shownName = QString(name).replace(u'&', QStringLiteral("&&"));
    EXPECT_EQ(listed(), QStringLiteral("&1 %1|&2 Untitled 2").arg(shownName));
    EXPECT_EQ(namesOf("WindowItem1 WindowItem2", &QAction::isChecked), "WindowItem2 ");
    frame.documents().constFirst()->showMinimized();
    run("WindowItem1");
    EXPECT_EQ(frame.activeDocument()->windowTitle(), name);
    EXPECT_FALSE(frame.activeDocument()->isMinimized());
    listed();
    EXPECT_EQ(namesOf("WindowItem1 WindowItem2", &QAction::isChecked), "WindowItem1 ");
    run("FileClose1");
    EXPECT_EQ(listed(), QStringLiteral("&1 Untitled 2"));
}

TEST_F(TMainFormTest, DroppedModelFilesAreOpened) {
    TMainForm& frame = start();
    const QString model = write("a.XSI", smallModel());
    const auto drop = [&frame](const QStringList& files) {
        QMimeData dragged;
        QList<QUrl> urls;
        for (const QString& file : files) {
            urls += QUrl::fromLocalFile(file);
        }
        dragged.setUrls(urls);
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&frame, &enter);
        if (enter.isAccepted()) {
            QDropEvent dropped({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&frame, &dropped);
            settle();
        }
        return enter.isAccepted();
    };
    EXPECT_FALSE(drop({write("a.txt", smallModel())}));
    EXPECT_TRUE(drop({write("a.txt", smallModel()), model, path("b.msh")}));
    EXPECT_EQ(captions(), QStringList({model, path("b.msh")}));
}

TEST_F(TMainFormTest, ANarrowFrameScrollsItsToolBar) {
    TMainForm& frame = start();
    frame.showNormal();
    auto& back = child<QToolButton>(frame, "ScrollBack");
    auto& forth = child<QToolButton>(frame, "ScrollForth");
    auto& bar = child<QToolBar>(frame, "ToolBar1");
    frame.resize(1000, 500);
    settle();
    EXPECT_TRUE(back.isHidden());
    frame.resize(220, 500);
    settle();
    ASSERT_LT(frame.width(), 300);
    EXPECT_FALSE(back.isEnabled());
    while (forth.isEnabled()) {
        const int before = bar.x();
        forth.click();
        ASSERT_LT(bar.x(), before);
    }
    const auto& last = child<QToolButton>(bar, "WindowTileVertical1Button");
    EXPECT_LE(last.mapTo(&frame, last.rect().bottomRight()).x(), forth.mapTo(&frame, QPoint()).x());
    frame.resize(1000, 500);
    settle();
    EXPECT_TRUE(forth.isHidden());
    EXPECT_EQ(bar.x(), 0);
}

TEST_F(TMainFormTest, FileDialogsLeaveNothingBehind) {
    start();
    answerFileDialog(QStringLiteral("OpenDialog1"), {});
    run("FileOpen1");
    EXPECT_TRUE(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).isEmpty());
}

} // namespace
} // namespace korvane::test
