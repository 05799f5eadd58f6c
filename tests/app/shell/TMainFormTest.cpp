#include "app/shell/TMainForm.h"

#include "app/shell/MdiArrange.h"
#include "app/shell/TAboutBox.h"
#include "app/widgets/ColorSwatch.h"
#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QClipboard>
#include <QColorDialog>
#include <QDropEvent>
#include <QFileDialog>
#include <QMdiArea>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QToolBar>
#include <QToolButton>

namespace korvane::test {
namespace {

using TMainFormTest = MainFormTest;

TEST_F(TMainFormTest, StartsEmptyAndMaximised) {
    const TMainForm& frame = start();
    EXPECT_TRUE(frame.isMaximized());
    EXPECT_EQ(child<QMdiArea>(frame, "MDIArea").background(), frame.palette().dark());
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        EXPECT_TRUE(widget == &frame || !widget->isVisible()) << widget->objectName().toStdString();
    }
    for (const QAction* command : child<QToolBar>(frame, "ToolBar1").actions()) {
        EXPECT_TRUE(command->isSeparator() ||
                    (!command->icon().isNull() && !command->statusTip().isEmpty()))
            << command->objectName().toStdString();
    }
    QStringList keys;
    for (const QAction* action : frame.findChildren<QAction*>()) {
        keys += action->shortcut().toString();
    }
    keys.removeAll(QString());
    EXPECT_EQ(keys.removeDuplicates(), 0) << "ambiguous keys";
    EXPECT_EQ(action("FileOpenItem").text(), QStringLiteral("&Open File\tCtrl+O"));
    EXPECT_TRUE(action("Rdots").associatedObjects().isEmpty()) << "in no menu or bar";
    EXPECT_TRUE(action("D3DAction").associatedObjects().isEmpty());
}

TEST_F(TMainFormTest, AboutBoxShowsAndCopiesTheDataForAReport) {
    start();
    answer<TAboutBox>([](TAboutBox& box) {
        const std::string report = box.report().toStdString();
        EXPECT_TRUE(report.starts_with("Korvane II Model Editor\nVersion "));
        EXPECT_NE(report.find(std::string("\nQt ") + qVersion()), std::string::npos);
        EXPECT_NE(report.find("\nOpenGL: "), std::string::npos);
        EXPECT_TRUE(child<QPushButton>(box, "OKButton").isDefault());
        child<QPushButton>(box, "CopyButton").click();
        EXPECT_EQ(QApplication::clipboard()->text().toStdString(), report);
        child<QPushButton>(box, "OKButton").click();
    });
    run("HelpAbout1");
}

TEST_F(TMainFormTest, FileCommandsFollowTheOpenWindows) {
    const std::string always = "FileNew1 FileOpen1 FileExit1 ColorOptionsAction D3DAction "
                               "OpenGLAction SoftwareAction HelpAbout1 ";
    const std::string withWindow = "FileClose1 FileSave FileSaveAs Rwire Rflat Rfull Rdots "
                                   "Rbackwards Rallowtrans WindowCascade1 WindowArrangeAll1 ";
    const std::string names = always + withWindow + "EditUndo1 EditRedo1 EditCut EditCopy ";
    const auto enabled = [&] { return namesOf(names.c_str(), &QAction::isEnabled); };
    start();
    EXPECT_EQ(enabled(), always);
    const QString name = write("models/small.xsi", smallModel());
    answerFileDialog(QStringLiteral("OpenDialog1"), name);
    run("FileOpen1");
    answer<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath(), path("models"));
        dialog.reject();
    });
    run("FileOpen1");
    EXPECT_TRUE(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).isEmpty()) << "left by a dialog";
    EXPECT_FALSE(action("FileSave").isEnabled());
    document().Modified = true;
    run("FileSave");
    EXPECT_FALSE(document().Modified);
    run("FileNew1");
    EXPECT_EQ(enabled(), always + withWindow);
    run("FileNew1");
    answerCloseQuestion(QStringLiteral("Untitled 3"), QMessageBox::No);
    run("FileClose1");
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Untitled 2")) << "the one active before";
    run("FileNew1");
    const QStringList open({name, QStringLiteral("Untitled 2"), QStringLiteral("Untitled 3")});
    for (const int last : {QMessageBox::Cancel, QMessageBox::No}) {
        EXPECT_EQ(captions(), open);
        answerCloseQuestion(open[1], QMessageBox::No);
        answerCloseQuestion(open[2], last);
        run("FileExit1");
        EXPECT_EQ(form().isVisible(), last == QMessageBox::Cancel);
    }
    EXPECT_EQ(enabled(), always);
}

TEST_F(TMainFormTest, OpensTextModelsOfTheCommandLineOnceAndDroppedFilesOfAnyKind) {
    const QString a = write("a.xsi", smallModel());
    const QString c = write("c.X", smallModel());
    start({a, write("b.msh", smallModel()), c, QStringLiteral("-dashed.xsi"),
           QStringLiteral("--help"), path("gone.XSI")});
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form(), &activation);
    settle();
    const QString dashed = QDir::current().filePath(QStringLiteral("-dashed.xsi"));
    const QStringList open({a, c, dashed, path("gone.XSI")});
    EXPECT_EQ(captions(), open);
    const auto drop = [&](const QStringList& files) {
        QMimeData dragged;
        dragged.setUrls(QUrl::fromStringList(files));
        QDropEvent dropped({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(&form(), &enter);
        return enter.isAccepted() && QCoreApplication::sendEvent(&form(), &dropped);
    };
    const QString local = QStringLiteral("file://");
    EXPECT_FALSE(drop({local + path("a.txt")}));
    EXPECT_TRUE(drop({local + path("a.txt"), local + a, local + path("b.msh")}));
    settle();
    EXPECT_EQ(captions(), open + QStringList({a, path("b.msh")}));
}

TEST_F(TMainFormTest, ActivatingAWindowRestoresItsFocus) {
    start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
    std::string focus;
    for (const auto keys :
         {Qt::NoModifier, Qt::ControlModifier, Qt::ControlModifier, Qt::ControlModifier}) {
        focus += QApplication::focusWidget()->objectName().toStdString() + ' ';
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, keys);
        settle();
    }
    EXPECT_EQ(focus, "TreeView1 EditButton TreeView1 EditButton ");
    // briefly hiding a window also moves the focus, unseen by the user
    window().showMaximized();
    for (const char* command : {"WindowTileVertical1", "WindowCascade1", "WindowTileVertical1"}) {
        run(command);
        EXPECT_TRUE(tree().hasFocus()) << command;
    }
    // a press that activates a window also chooses a control there
    auto& there = child<QTreeView>(*form().documents().at(1), "TreeView1");
    QTest::mouseClick(there.viewport(), Qt::LeftButton);
    settle();
    EXPECT_TRUE(there.hasFocus());
}

TEST_F(TMainFormTest, TitleStatusAndWindowMenuFollowTheActiveWindow) {
    const QString name = write("a&b.xsi", smallModel());
    const TMainForm& frame = start({name});
    const auto shown = [&] { // the windows come last, after the commands and a separator
        auto& menu = child<QMenu>(frame, "Window1");
        Q_EMIT menu.aboutToShow();
        QString text = frame.windowTitle() + u'|' + QString::fromStdString(status());
        for (const QAction* action : menu.actions().mid(6)) {
            text += (action->isChecked() ? u'+' : u'|') + action->text();
        }
        return text.remove(folder());
    };
    const QString title = QStringLiteral("Korvane II Model Editor");
    EXPECT_EQ(shown(), title + QStringLiteral(" - [/a&b.xsi]|1 mesh, 2 faces+&1 /a&&b.xsi"));
    action("FileSaveAs").showStatusText(&form());
    EXPECT_EQ(status(), "Save the model to another file");
    QAction().showStatusText(&form());
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    // a command clears the message of the last one
    button("AddButton").click();
    run("EditUndo1");
    EXPECT_EQ(status(), "Undone: add frame");
    run("Rwire");
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    run("FileNew1");
    EXPECT_EQ(shown(), title + QStringLiteral(
                                   " - [Untitled 2]|0 meshes, 0 faces|&1 /a&&b.xsi+&2 Untitled 2"));
    frame.documents().constFirst()->showMinimized();
    run("WindowItem1");
    EXPECT_FALSE(window().isMinimized());
    EXPECT_EQ(shown(),
              title + QStringLiteral(" - [/a&b.xsi]|1 mesh, 2 faces+&1 /a&&b.xsi|&2 Untitled 2"));
    window().closeUnasked();
    settle();
    EXPECT_EQ(shown(), title + QStringLiteral(" - [Untitled 2]|0 meshes, 0 faces+&1 Untitled 2"));
    window().closeUnasked();
    settle();
    EXPECT_EQ(shown(), title + u'|');
}

TEST_F(TMainFormTest, MarksFollowTheCommandsAndTheActiveWindow) {
    const char* const names = "Rwire Rflat Rfull Rdots Rallowtrans Rbackwards "
                              "OpenGLAction SoftwareAction D3DAction";
    const auto marks = [&] { return namesOf(names, &QAction::isChecked); };
    start();
    const char* const fresh = "Rfull Rallowtrans Rbackwards OpenGLAction ";
    const std::pair<const char*, const char*> steps[] = {
        {"OpenGLAction", ""}, // does nothing without a window
        {"FileNew1", fresh},
        {"FileNew1", fresh},
        {"Rwire", "Rwire Rallowtrans Rbackwards OpenGLAction "},
        {"Rfull", fresh},
        {"Rfull", fresh},
        {"Rflat", "Rflat Rallowtrans Rbackwards OpenGLAction "},
        {"Rdots", "Rflat Rdots Rallowtrans Rbackwards OpenGLAction "},
        {"Rallowtrans", "Rflat Rdots Rbackwards OpenGLAction "},
        {"SoftwareAction", "Rflat Rdots Rbackwards SoftwareAction "},
        {"Rbackwards", "Rflat Rdots SoftwareAction "},
        {"D3DAction", "Rflat Rdots D3DAction "}};
    for (const auto& [command, expected] : steps) {
        run(command);
        EXPECT_EQ(marks(), expected) << command;
    }
    EXPECT_EQ(window().view().lastDrawnMode, RenderMode::FlatShading) << "redrawn at once";
    form().documents()[0]->setFocus();
    EXPECT_EQ(marks(), fresh);
    form().documents()[1]->setFocus();
    EXPECT_EQ(marks(), "Rflat Rdots D3DAction ");
    // without a change, no menu or button is updated
    int changes = 0;
    for (QAction* action : form().findChildren<QAction*>()) {
        QObject::connect(action, &QAction::changed, &form(), [&changes] { ++changes; });
    }
    settle();
    EXPECT_EQ(changes, 0);
}

TEST_F(TMainFormTest, OkAppliesColoursToAllWindowsAndCancelOnlyToNewOnes) {
    using Colors = std::vector<std::pair<const char*, QRgb>>;
    const auto recolor = [this](const Colors& colors, int result) {
        answer<QDialog>([&](QDialog& options) {
            for (const auto& [name, rgb] : colors) {
                auto& swatch = child<ColorSwatch>(options, name);
                const QColor color(rgb);
                answer<QColorDialog>([&](QColorDialog& dialog) {
                    EXPECT_EQ(dialog.currentColor(), swatch.color());
                    dialog.setCurrentColor(color);
                    dialog.accept();
                });
                QTest::keyClick(&swatch, Qt::Key_Return);
                EXPECT_EQ(swatch.color(), color);
            }
            options.done(result);
        });
        run("ColorOptionsAction");
    };
    // the colours of the 3D view, and of the panel and the background of a 2D view
    const auto colors = [](const TMDIChild& window) {
        const auto& [space, selected, below, others] = window.view().colors;
        const QColor panel = child<QWidget>(window, "Panel5").palette().color(QPalette::Window);
        const QRgb paper = child<TImage>(window, "Image4").picture().pixel(0, 0);
        const QStringList names({QColor(space).name(), QColor(selected).name(),
                                 QColor(below).name(), QColor(others).name(), panel.name(),
                                 QColor(paper).name()});
        return names.join(u' ').toStdString();
    };
    start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
    const QList<TMDIChild*> open = form().documents();
    run("WindowTileVertical1"); // covered windows are not drawn
    open[0]->setDrawingInterface(DrawApi::Software);
    recolor({{"ThreeDWinColorEdit", 0xff0a141eU}, {"TwoDWinColorEdit", 0xff28323cU}},
            QDialog::Rejected);
    for (const TMDIChild* window : open) {
        EXPECT_EQ(colors(*window), "#000000 #ff0000 #00ff00 #0000ff #ffffff #ffffff");
    }
    run("FileNew1");
    TMDIChild& added = window();
    run("WindowTileVertical1");
    EXPECT_EQ(colors(added), "#0a141e #ff0000 #00ff00 #0000ff #ffffff #ffffff")
        << "the 2D views have the default colours until the next OK";
    EXPECT_EQ(child<QWidget>(added, "Panel1").palette().color(QPalette::Window),
              QColor(0xff0a141eU));
    open[1]->setFocus();
    recolor({{"WireRenderSelectedChildEdit", 0xff010203U},
             {"WorldAxesEdit", 0xff46505aU},
             {"ObjAxesEdit", 0xffff00ffU}},
            QDialog::Accepted);
    const std::string pushed = "#0a141e #ff0000 #010203 #0000ff #28323c ";
    EXPECT_EQ(colors(*open[0]), pushed + "#ffffff");
    EXPECT_EQ(colors(*open[1]), pushed + "#28323c") << "the active one is redrawn";
    EXPECT_EQ(colors(added), pushed + "#ffffff");
    EXPECT_EQ(child<TImage>(*open[1], "Image1").picture().pixel(0, 0), 0xff0a141eU);
    added.render3d();
    settle();
    EXPECT_EQ(colors(added), pushed + "#28323c");
    const QImage plane = child<TImage>(added, "Image2").picture().copy();
    EXPECT_EQ(plane.pixel(plane.width() / 2, 0), 0xff46505aU) << "the axes of an empty model";
}

TEST_F(TMainFormTest, ANarrowFrameScrollsItsToolBar) {
    TMainForm& frame = start();
    frame.showNormal();
    const auto& back = child<QToolButton>(frame, "ScrollBack");
    auto& forth = child<QToolButton>(frame, "ScrollForth");
    const auto& bar = child<QToolBar>(frame, "ToolBar1");
    const auto& last = child<QToolButton>(bar, "WindowTileVertical1Button");
    for (const int width : {1000, 220, 1000}) {
        frame.resize(width, 500);
        settle();
        ASSERT_NEAR(frame.width(), width, 80);
        EXPECT_EQ(back.isVisible(), width == 220);
        EXPECT_EQ(forth.isVisible(), width == 220);
        EXPECT_FALSE(back.isEnabled());
        EXPECT_EQ(bar.x(), 0);
        for (int before = 1; forth.isEnabled(); forth.click()) {
            ASSERT_LT(bar.x(), before);
            before = bar.x();
        }
        const int end = last.mapTo(&frame, last.rect().bottomRight()).x();
        EXPECT_LE(end, forth.mapTo(&frame, QPoint()).x());
    }
}

TEST_F(TMainFormTest, CommandsArrangeTheWindows) {
    const TMainForm& frame = start();
    run("FileNew1");
    run("FileNew1");
    run("FileNew1");
    const QList<TMDIChild*> windows = frame.documents();
    const auto places = [&windows] {
        QList<QRect> found;
        for (const TMDIChild* window : windows) {
            found += window->geometry();
        }
        return found;
    };
    const QRect area = child<QMdiArea>(frame, "MDIArea").viewport()->rect();
    run("WindowTileHorizontal1");
    EXPECT_EQ(places(), tileRects(area.size(), 3, Qt::Horizontal));
    run("WindowTileVertical1");
    EXPECT_EQ(places(), tileRects(area.size(), 3, Qt::Vertical));
    EXPECT_EQ(frame.activeDocument(), windows[2]);
    run("WindowCascade1");
    const QPoint step = places()[1].topLeft();
    EXPECT_TRUE(step.x() > 0 && step.y() > 0);
    for (int i = 0; i < 3; ++i) { // the active one is last and on top
        EXPECT_EQ(places()[i], QRect(i * step, area.size() * 3 / 4));
    }
    windows[0]->showMaximized();
    run("WindowMinimizeAll1");
    for (TMDIChild* window : windows) {
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
    EXPECT_TRUE(windows[0]->isMinimized()) << "minimised windows are not tiled";
    // narrow title bars show the end of a path
    const auto titled = [&windows](QChar first, QChar last) {
        windows[0]->setWindowTitle(first + QString(60, u'x') + QStringLiteral("[*][*]") + last);
        settle();
        return windows[0]->grab().toImage();
    };
    const QImage shown = titled(u'a', u'i');
    EXPECT_EQ(titled(u'b', u'i'), shown);
    EXPECT_NE(titled(u'a', u'o'), shown);
}

TEST(MdiArrange, TilesFillTheAreaWithoutGaps) {
    const QSize area(601, 401);
    EXPECT_EQ(tileRects(area, 3, Qt::Vertical),
              QList<QRect>({{0, 0, 200, 401}, {200, 0, 200, 401}, {400, 0, 201, 401}}));
    const QList<QRect> five = {{0, 0, 300, 200},
                               {0, 200, 300, 201},
                               {300, 0, 301, 133},
                               {300, 133, 301, 134},
                               {300, 267, 301, 134}};
    EXPECT_EQ(tileRects(area, 5, Qt::Horizontal), five);
}

TEST(CommandLine, IsReadBeforeADisplayIsNeeded) {
    const char* const version = "0 Korvane II Model Editor ";
    const char* const help = "0 Usage: korvane-editor ";
    const char* const none = "1 | korvane-editor: There is no display: ";
    const std::pair<const char*, const char*> rows[] = {
        {"--version", version},
        {"-h --version", help},
        {"--help a.xsi", help},
        {"a.xsi -platform --version", version},
        {"-- --help", none},
        {"-platform offscreen --display :0 a.x", none}}; // options of the toolkit
    for (const auto& [words, expected] : rows) {
        QProcess program;
        program.startCommand(
            QStringLiteral("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM %1 %2")
                .arg(QStringLiteral(KORVANE_EDITOR), QString::fromLatin1(words)));
        ASSERT_TRUE(program.waitForFinished());
        const QByteArray told = QByteArray::number(program.exitCode()) + ' ' +
                                program.readAllStandardOutput() + "| " +
                                program.readAllStandardError();
        EXPECT_TRUE(told.startsWith(expected)) << words << '\n' << told.data();
        EXPECT_EQ(told.endsWith("| "), expected != none) << words;
    }
}

} // namespace
} // namespace korvane::test
