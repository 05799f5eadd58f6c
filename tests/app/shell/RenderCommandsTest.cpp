#include "app/widgets/ColorSwatch.h"
#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QColorDialog>
#include <QOpenGLWidget>
#include <QPushButton>
#include <QTest>

namespace korvane::test {
namespace {

/// The commands that change how the active window draws, and the colours.
class RenderCommandsTest : public MainFormTest {
  protected:
    [[nodiscard]] std::string marks() const {
        return namesOf("Rwire Rflat Rfull Rdots Rallowtrans Rbackwards "
                       "OpenGLAction SoftwareAction D3DAction",
                       &QAction::isChecked);
    }

    [[nodiscard]] const ViewState& view() const { return window().view(); }

    [[nodiscard]] static QRgb corner(TMDIChild& window) {
        settle();
        return child<QOpenGLWidget>(window, "GlPanel").grabFramebuffer().pixel(0, 0);
    }

    /// Shows the dialog, gives a swatch another colour in it and answers it.
    void recolor(const char* swatch, const QColor& color, bool accept) {
        answer([=, this](QWidget& options) {
            EXPECT_EQ(options.windowTitle(), QStringLiteral("ColorOptions"));
            auto& panel = child<ColorSwatch>(options, swatch);
            const QColor before = panel.color();
            answer([=](QWidget& shown) {
                auto& dialog = dynamic_cast<QColorDialog&>(shown);
                EXPECT_EQ(dialog.currentColor(), before);
                dialog.setCurrentColor(color);
                dialog.accept();
            });
            QTest::keyClick(&panel, Qt::Key_Return);
            EXPECT_EQ(panel.color(), color);
            auto& dialog = dynamic_cast<QDialog&>(options);
            accept ? dialog.accept() : dialog.reject();
        });
        run("ColorOptionsAction");
    }
};

TEST_F(RenderCommandsTest, ModesSettingsAndInterfacesMoveTheirMarks) {
    start({write("small.xsi", smallModel())});
    EXPECT_EQ(marks(), "Rfull Rallowtrans Rbackwards OpenGLAction ");
    const struct {
        const char* command;
        const char* marks;
    } steps[] = {{"Rwire", "Rwire Rallowtrans Rbackwards OpenGLAction "},
                 {"Rwire", "Rwire Rallowtrans Rbackwards OpenGLAction "},
                 {"Rflat", "Rflat Rallowtrans Rbackwards OpenGLAction "},
                 {"Rdots", "Rflat Rdots Rallowtrans Rbackwards OpenGLAction "},
                 {"Rallowtrans", "Rflat Rdots Rbackwards OpenGLAction "},
                 {"SoftwareAction", "Rflat Rdots Rbackwards SoftwareAction "},
                 {"SoftwareAction", "Rflat Rdots Rbackwards SoftwareAction "},
                 {"Rbackwards", "Rflat Rdots SoftwareAction "},
                 {"D3DAction", "Rflat Rdots D3DAction "},
                 {"Rfull", "Rfull Rdots D3DAction "}};
    for (const auto& [command, expected] : steps) {
        run(command);
        EXPECT_EQ(marks(), expected) << command;
    }
    EXPECT_EQ(view().mode, RenderMode::SmoothShading);
    EXPECT_EQ(view().lastDrawnMode, RenderMode::SmoothShading) << "redrawn at once";
    EXPECT_TRUE(view().dots);
    EXPECT_FALSE(view().allowTransparent);
    EXPECT_FALSE(view().showHiddenTransparent);
    EXPECT_EQ(view().api, DrawApi::Direct3D);
    EXPECT_FALSE(form().activeDocument()->document()->Modified);
}

TEST_F(RenderCommandsTest, MarksFollowTheActiveWindow) {
    const TMainForm& frame = start();
    run("FileNew1");
    run("FileNew1");
    run("Rwire");
    run("SoftwareAction");
    const QList<TMDIChild*> windows = frame.documents();
    windows[0]->setFocus();
    EXPECT_EQ(marks(), "Rfull Rallowtrans Rbackwards OpenGLAction ");
    windows[1]->setFocus();
    EXPECT_EQ(marks(), "Rwire Rallowtrans Rbackwards SoftwareAction ");
    EXPECT_EQ(windows[0]->view().mode, RenderMode::SmoothShading);
}

TEST_F(RenderCommandsTest, WithoutAWindowInterfacesDoNothing) {
    start();
    for (const char* command : {"OpenGLAction", "SoftwareAction", "D3DAction"}) {
        run(command);
        EXPECT_EQ(marks().find("Action"), std::string::npos) << command;
    }
    recolor("ObjAxesEdit", Qt::magenta, true);
}

TEST_F(RenderCommandsTest, MenusAndButtonsStayUntouchedWhenNothingChanged) {
    start({write("small.xsi", smallModel())});
    settle();
    int changes = 0;
    for (QAction* action : form().findChildren<QAction*>()) {
        QObject::connect(action, &QAction::changed, &form(), [&changes] { ++changes; });
    }
    settle();
    settle();
    EXPECT_EQ(changes, 0);
    action("Rwire").trigger();
    EXPECT_GT(changes, 0);
}

TEST_F(RenderCommandsTest, OkPushesColoursIntoAllWindowsAndCancelIntoNewOnesOnly) {
    const TMainForm& frame = start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
    const QList<TMDIChild*> windows = frame.documents();
    windows[0]->setDrawingInterface(DrawApi::Software);
    windows[0]->session()->view().lastDrawnMode = RenderMode::SmoothShading;

    recolor("ThreeDWinColorEdit", QColor(10, 20, 30), false);
    for (TMDIChild* window : windows) {
        EXPECT_EQ(window->view().colors.background, 0xff000000U);
    }
    run("FileNew1");
    TMDIChild& added = *frame.activeDocument();
    EXPECT_EQ(added.view().colors.background, 0xff0a141eU);
    EXPECT_EQ(corner(added), 0xff0a141eU);
    EXPECT_EQ(child<QWidget>(added, "Panel1").palette().color(QPalette::Window),
              QColor(10, 20, 30));

    windows[1]->setFocus();
    recolor("WireRenderSelectedChildEdit", QColor(1, 2, 3), true);
    for (TMDIChild* window : frame.documents()) {
        EXPECT_EQ(window->view().colors.background, 0xff0a141eU);
        EXPECT_EQ(window->view().colors.selectedChild, 0xff010203U);
        EXPECT_EQ(window->view().colors.selected, 0xffff0000U);
        EXPECT_EQ(window->view().colors.unselected, 0xff0000ffU);
    }
    EXPECT_EQ(corner(*windows[1]), 0xff0a141eU) << "the active one is redrawn";
    EXPECT_EQ(windows[0]->view().lastDrawnMode, RenderMode::SmoothShading);
    EXPECT_EQ(added.view().lastDrawnMode, static_cast<RenderMode>(10)) << "OpenGL is set up anew";
}

TEST_F(RenderCommandsTest, ThePlanesTakeTheirColoursFromTheNextOkOn) {
    const TMainForm& frame = start({write("a.xsi", smallModel())});
    const auto paper = [](TMDIChild& window) {
        return child<TImage>(window, "Image4").picture().pixel(0, 0);
    };
    recolor("TwoDWinColorEdit", QColor(40, 50, 60), false);
    EXPECT_EQ(paper(*frame.activeDocument()), 0xffffffffU);
    run("FileNew1");
    TMDIChild& added = *frame.activeDocument();
    EXPECT_EQ(paper(added), 0xffffffffU) << "a new window has its own colours until then";
    recolor("WorldAxesEdit", QColor(70, 80, 90), true);
    EXPECT_EQ(paper(added), 0xff28323cU);
    const QImage planes = child<TImage>(added, "Image2").picture().copy();
    EXPECT_EQ(planes.pixel(planes.width() / 2, 0), 0xff46505aU) << "the axes of an empty model";
    EXPECT_EQ(child<QWidget>(added, "Panel5").palette().color(QPalette::Window),
              QColor(40, 50, 60));
    // the other window shows its colours as soon as it is drawn
    TMDIChild& first = *frame.documents().constFirst();
    first.render3d();
    EXPECT_EQ(paper(first), 0xff28323cU);
}

} // namespace
} // namespace korvane::test
