#include "app/shell/TMainForm.h"

#include "app/shell/MdiArrange.h"
#include "app/shell/TAboutBox.h"
#include "support/MainFormTest.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QStatusTipEvent>
#include <QToolBar>
#include <QToolButton>

namespace korvane::test {
namespace {

const QString title = QStringLiteral("Korvane II Model Editor");

// The commands that are enabled, always, with a window, and by what its model allows.
const std::string always = "FileNew1 FileOpen1 FileExit1 ColorOptionsAction D3DAction OpenGLAction "
                           "SoftwareAction HelpAbout1 ";
const std::string withWindow = "FileClose1 FileSave FileSaveAs Rwire Rflat Rfull Rdots Rbackwards "
                               "Rallowtrans WindowCascade1 WindowArrangeAll1 ";
const std::string withModel = "EditUndo1 EditRedo1 EditCut EditCopy EditPaste ";

class TMainFormTest : public MainFormTest {
  protected:
    [[nodiscard]] std::string enabledCommands() const {
        return namesOf((always + withWindow + withModel).c_str(), &QAction::isEnabled);
    }
    [[nodiscard]] std::string status() const {
        return child<QLabel>(form(), "StatusPanel").text().toStdString();
    }
    /// Drags the files over the frame and drops them where it takes them.
    bool drop(const QStringList& files) const {
        QMimeData dragged;
        dragged.setUrls(QUrl::fromStringList(files));
        QDropEvent dropped({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&form(), &enter);
        if (enter.isAccepted()) {
            QCoreApplication::sendEvent(&form(), &dropped);
            settle();
        }
        return enter.isAccepted();
    }
    void hint(const QString& text) const {
        QStatusTipEvent event(text);
        QCoreApplication::sendEvent(&form(), &event);
    }
    /// The texts of the "Window" menu behind the commands and a line.
    [[nodiscard]] QString listed() const {
        auto& menu = child<QMenu>(form(), "Window1");
        Q_EMIT menu.aboutToShow();
        QStringList texts;
        for (const QAction* action : menu.actions().mid(6)) {
            texts += action->text();
        }
        return texts.join(u'|');
    }
    static std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }
};

TEST_F(TMainFormTest, StartsEmptyAndMaximised) {
    const TMainForm& frame = start();
    EXPECT_EQ(frame.windowTitle(), title);
    EXPECT_EQ(QCoreApplication::applicationName(), title);
    EXPECT_TRUE(frame.isMaximized());
    EXPECT_EQ(status(), "");
    EXPECT_EQ(child<QMdiArea>(frame, "MDIArea").background(),
              frame.palette().brush(QPalette::Dark));
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        EXPECT_TRUE(widget == &frame || !widget->isVisible()) << widget->objectName().toStdString();
    }
    for (const auto* button : child<QToolBar>(frame, "ToolBar1").findChildren<QToolButton*>()) {
        EXPECT_TRUE(button->defaultAction() == nullptr ||
                    (!button->icon().isNull() && !button->statusTip().isEmpty()))
            << button->accessibleName().toStdString();
    }
    for (const char* name : {"Rdots", "D3DAction"}) {
        EXPECT_TRUE(action(name).associatedObjects().isEmpty()) << name << " is out of reach";
    }
    QStringList keys;
    for (const QAction* action : frame.findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty()) {
            keys += action->shortcut().toString();
        }
    }
    EXPECT_GE(keys.size(), 5);
    EXPECT_EQ(keys.removeDuplicates(), 0) << "that would be ambiguous";
    EXPECT_EQ(action("FileOpenItem").text(), QStringLiteral("&Open File\tCtrl+O"));
}

TEST_F(TMainFormTest, AboutTellsWhatAReportNeedsAndCopiesIt) {
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

TEST_F(TMainFormTest, FileCommandsFollowTheWindowsThereAre) {
    start();
    EXPECT_EQ(enabledCommands(), always);
    const QString name = write("small.xsi", smallModel());
    answerFileDialog(QStringLiteral("OpenDialog1"), {});
    run("FileOpen1");
    answerFileDialog(QStringLiteral("OpenDialog1"), name);
    run("FileOpen1");
    EXPECT_TRUE(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).isEmpty()) << "left by a dialog";
    EXPECT_FALSE(action("FileSave").isEnabled());
    document().Modified = true;
    run("FileSave");
    EXPECT_FALSE(document().Modified);
    run("FileNew1");
    EXPECT_EQ(enabledCommands(), always + withWindow);
    run("FileNew1");
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Untitled 2")) << "the one used before";
    run("FileNew1");
    EXPECT_EQ(captions(),
              QStringList({name, QStringLiteral("Untitled 2"), QStringLiteral("Untitled 3")}));
    for (const int last : {QMessageBox::Cancel, QMessageBox::No}) {
        EXPECT_TRUE(form().isVisible());
        EXPECT_EQ(captions().size(), 3);
        answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
        answerCloseQuestion(QStringLiteral("Untitled 3"), last);
        run("FileExit1");
        EXPECT_TRUE(allAnswered());
    }
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(enabledCommands(), always);
}

TEST_F(TMainFormTest, OpensTextModelsOfTheCommandLineOnceAndDroppedFilesOfAnyKind) {
    const QString a = write("a.xsi", smallModel());
    const QString c = write("c.X", smallModel());
    start({a, write("b.msh", smallModel()), c, QStringLiteral("-dashed.xsi"),
           QStringLiteral("--help"), path("gone.XSI")});
    QStringList open(
        {a, c, QDir::current().filePath(QStringLiteral("-dashed.xsi")), path("gone.XSI")});
    EXPECT_EQ(captions(), open);
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form(), &activation);
    settle();
    EXPECT_EQ(captions(), open);
    const QString local = QStringLiteral("file://");
    EXPECT_FALSE(drop({local + path("a.txt")}));
    EXPECT_TRUE(drop({local + path("a.txt"), local + a, local + path("b.msh")}));
    EXPECT_EQ(captions(), open << a << path("b.msh"));
}

TEST_F(TMainFormTest, ComingBackToAWindowPutsTheKeyboardWhereItWas) {
    start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
    settle();
    EXPECT_TRUE(tree().hasFocus());
    QTest::keyClick(&tree(), Qt::Key_Tab);
    settle();
    const std::string chosen = focused();
    EXPECT_NE(chosen, "TreeView1");
    std::string focus;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        settle();
        focus += focused() + ' ';
    }
    EXPECT_EQ(focus, "TreeView1 " + chosen + " TreeView1 ");
    // hiding for a moment moves the focus as well, out of the user's sight
    window().showMaximized();
    for (const char* command : {"WindowTileVertical1", "WindowCascade1", "WindowTileVertical1"}) {
        run(command);
        EXPECT_TRUE(tree().hasFocus()) << command;
    }
    // the press that comes back to a window chooses a control there
    TMDIChild& other = *form().documents().at(1);
    auto& there = child<QTreeView>(other, "TreeView1");
    QTest::mouseClick(there.viewport(), Qt::LeftButton);
    settle();
    EXPECT_EQ(&window(), &other);
    EXPECT_TRUE(there.hasFocus());
}

TEST_F(TMainFormTest, StatusTitleAndWindowMenuFollowTheActiveWindow) {
    const QString name = write("models/a&b.xsi", smallModel());
    const TMainForm& frame = start({name});
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    EXPECT_EQ(frame.windowTitle(), title + QStringLiteral(" - [%1]").arg(name));
    hint(QStringLiteral("Save the model to another file"));
    EXPECT_EQ(status(), "Save the model to another file");
    hint({});
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    answer([this](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.directory().absolutePath(), path("models"));
        dialog.reject();
    });
    run("FileOpen1");
    for (const QLabel* label : form().findChildren<QLabel*>()) {
        if (!label->objectName().startsWith(u"qt_") && label->objectName() != u"ProgramIcon") {
            EXPECT_EQ(label->accessibleName(), QString()) << "it is read as what it shows";
        }
    }
    // a command ends what the last one said
    select(bodyNode + "/Frame frm-wing");
    child<QPushButton>(window(), "DeleteButton").click();
    run("EditUndo1");
    EXPECT_EQ(status(), "Undone: delete frame");
    run("FileSave");
    EXPECT_EQ(status(), "a&b.xsi was written: 1 mesh, 2 faces");
    run("Rwire");
    EXPECT_EQ(status(), "1 mesh, 2 faces");

    run("FileNew1");
    EXPECT_EQ(status(), "0 meshes, 0 faces");
    const QString shownName = QString(name).replace(u'&', QStringLiteral("&&"));
    EXPECT_EQ(listed(), QStringLiteral("&1 %1|&2 Untitled 2").arg(shownName));
    EXPECT_EQ(namesOf("WindowItem1 WindowItem2", &QAction::isChecked), "WindowItem2 ");
    frame.documents().constFirst()->showMinimized();
    run("WindowItem1");
    EXPECT_EQ(window().windowTitle(), name);
    EXPECT_FALSE(window().isMinimized());
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    EXPECT_NE(listed(), QString());
    EXPECT_EQ(namesOf("WindowItem1 WindowItem2", &QAction::isChecked), "WindowItem1 ");
    run("FileClose1");
    EXPECT_EQ(listed(), QStringLiteral("&1 Untitled 2"));
    window().showNormal();
    EXPECT_EQ(frame.windowTitle(), title);
    window().closeUnasked();
    settle();
    EXPECT_EQ(frame.windowTitle(), title);
    EXPECT_EQ(status(), "");
}

TEST_F(TMainFormTest, ANarrowFrameScrollsItsToolBar) {
    TMainForm& frame = start();
    frame.showNormal();
    auto& back = child<QToolButton>(frame, "ScrollBack");
    auto& forth = child<QToolButton>(frame, "ScrollForth");
    auto& bar = child<QToolBar>(frame, "ToolBar1");
    const auto narrow = [&frame](int width) {
        frame.resize(width, 500);
        settle();
    };
    narrow(1000);
    EXPECT_TRUE(back.isHidden());
    narrow(220);
    ASSERT_LT(frame.width(), 300);
    EXPECT_FALSE(back.isEnabled());
    while (forth.isEnabled()) {
        const int before = bar.x();
        forth.click();
        ASSERT_LT(bar.x(), before);
    }
    const auto& last = child<QToolButton>(bar, "WindowTileVertical1Button");
    EXPECT_LE(last.mapTo(&frame, last.rect().bottomRight()).x(), forth.mapTo(&frame, QPoint()).x());
    narrow(1000);
    EXPECT_TRUE(forth.isHidden());
    EXPECT_EQ(bar.x(), 0);
}

TEST_F(TMainFormTest, WindowsAreArrangedAsTheCommandsSay) {
    const TMainForm& frame = start();
    const auto places = [&frame] {
        QList<QRect> found;
        for (const TMDIChild* window : frame.documents()) {
            found += window->geometry();
        }
        return found;
    };
    run("FileNew1");
    run("FileNew1");
    run("FileNew1");
    const TMDIChild* const active = frame.activeDocument();
    const QRect area = child<QMdiArea>(frame, "MDIArea").viewport()->rect();
    run("WindowTileHorizontal1");
    EXPECT_EQ(places(), tileRects(area.size(), 3, Qt::Horizontal));
    run("WindowTileVertical1");
    EXPECT_EQ(places(), tileRects(area.size(), 3, Qt::Vertical));
    EXPECT_EQ(frame.activeDocument(), active);
    run("WindowCascade1");
    const QList<QRect> stack = places(); // the active one is the last one and on top
    for (qsizetype i = 1; i < stack.size(); ++i) {
        EXPECT_GT(stack[i].x(), stack[i - 1].x());
        EXPECT_GT(stack[i].y(), stack[i - 1].y());
        EXPECT_EQ(stack[i].size(), area.size() * 3 / 4);
    }
    frame.documents().constFirst()->showMaximized();
    run("WindowMinimizeAll1");
    for (TMDIChild* window : frame.documents()) {
        EXPECT_TRUE(window->isMinimized());
        window->move(200, 100);
    }
    run("WindowArrangeAll1");
    int x = 0;
    for (const QRect& place : places()) {
        EXPECT_EQ(place.bottomLeft(), QPoint(x, area.bottom()));
        x += place.width();
    }
    run("WindowTileVertical1");
    EXPECT_TRUE(frame.documents().constFirst()->isMinimized()) << "icons are no tiles";
    // their title bars are narrow and show the end of a path
    TMDIChild& icon = *frame.documents().constFirst();
    const auto titled = [&icon](const char* start, const char* end) {
        icon.setWindowTitle(QString::fromLatin1(start) +
                            QStringLiteral("/a folder with a long name/and another one in it/") +
                            QString::fromLatin1(end));
        settle();
        return icon.grab().toImage();
    };
    const QImage shown = titled("", "a[*][*].xsi");
    EXPECT_EQ(titled("/elsewhere", "a[*][*].xsi"), shown);
    EXPECT_NE(titled("", "a[*][*].xso"), shown) << "the last letter shows";
}

TEST(MdiArrange, TilesFillTheAreaWithoutGaps) {
    const QSize area(601, 401);
    const std::tuple<int, Qt::Orientation, QList<QRect>> cases[] = {
        {0, Qt::Horizontal, {}},
        {2, Qt::Horizontal, {{0, 0, 601, 200}, {0, 200, 601, 201}}},
        {3, Qt::Vertical, {{0, 0, 200, 401}, {200, 0, 200, 401}, {400, 0, 201, 401}}},
        {5,
         Qt::Horizontal,
         {{0, 0, 300, 200},
          {0, 200, 300, 201},
          {300, 0, 301, 133},
          {300, 133, 301, 134},
          {300, 267, 301, 134}}}};
    for (const auto& [count, orientation, expected] : cases) {
        EXPECT_EQ(tileRects(area, count, orientation), expected) << count;
    }
}

TEST(CommandLine, IsReadBeforeTheToolkitLooksForADisplay) {
    const char* version = "Korvane II Model Editor ";
    const char* help = "Usage: korvane-editor ";
    const std::pair<const char*, const char*> rows[] = {
        {"--version", version},
        {"-h --version", help},
        {"--help a.xsi", help},
        {"a.xsi -platform --version", version},
        {"a.xsi", nullptr},
        {"-- --help", nullptr},
        {"-platform offscreen --display :0 a.x", nullptr}, // options of the toolkit
        {"", nullptr}};
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.remove(QString::fromLatin1(name));
    }
    program.setProcessEnvironment(environment);
    for (const auto& [words, output] : rows) {
        const bool answered = output != nullptr;
        program.start(QStringLiteral(KORVANE_EDITOR),
                      QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts));
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), answered ? 0 : 1) << words;
        const QByteArray said = program.readAllStandardOutput();
        EXPECT_TRUE(answered ? said.startsWith(output) : said.isEmpty()) << words;
        EXPECT_EQ(program.readAllStandardError().toStdString(),
                  answered ? ""
                           : "korvane-editor: There is no display: neither DISPLAY nor "
                             "WAYLAND_DISPLAY is set.\n");
    }
}

} // namespace
} // namespace korvane::test
