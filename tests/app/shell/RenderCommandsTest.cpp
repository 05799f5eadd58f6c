#include "app/widgets/ColorSwatch.h"
#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QColorDialog>
#include <QOpenGLWidget>

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

    [[nodiscard]] static QRgb corner(TMDIChild& window) {
        settle();
        return child<QOpenGLWidget>(window, "GlPanel").grabFramebuffer().pixel(0, 0);
    }
    [[nodiscard]] static QRgb paper(TMDIChild& window) {
        return child<TImage>(window, "Image4").picture().pixel(0, 0);
    }
    [[nodiscard]] static QRgb panel(TMDIChild& window, const char* name) {
        return child<QWidget>(window, name).palette().color(QPalette::Window).rgb();
    }

    /// Shows the dialog, gives swatches other colours in it and answers it.
    void recolor(const std::vector<std::pair<const char*, QRgb>>& colors, bool accept) {
        answer([=, this](QWidget& options) {
            EXPECT_EQ(options.windowTitle(), QStringLiteral("ColorOptions"));
            for (const auto& [swatch, rgb] : colors) {
                auto& panel = child<ColorSwatch>(options, swatch);
                const QColor before = panel.color();
                const QColor color(rgb);
                answer([=](QWidget& shown) {
                    auto& dialog = dynamic_cast<QColorDialog&>(shown);
                    EXPECT_EQ(dialog.currentColor(), before);
                    dialog.setCurrentColor(color);
                    dialog.accept();
                });
                QTest::keyClick(&panel, Qt::Key_Return);
                EXPECT_EQ(panel.color(), color);
            }
            dynamic_cast<QDialog&>(options).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
        run("ColorOptionsAction");
    }
};

TEST_F(RenderCommandsTest, MarksFollowTheCommandsAndTheActiveWindow) {
    start();
    for (const char* command : {"OpenGLAction", "SoftwareAction", "D3DAction"}) {
        run(command); // which does nothing without a window
        EXPECT_EQ(marks().find("Action"), std::string::npos) << command;
    }
    run("FileNew1");
    run("FileNew1");
    const char* const fresh = "Rfull Rallowtrans Rbackwards OpenGLAction ";
    EXPECT_EQ(marks(), fresh);
    const std::pair<const char*, const char*> steps[] = {
        {"Rwire", "Rwire Rallowtrans Rbackwards OpenGLAction "},
        {"Rwire", "Rwire Rallowtrans Rbackwards OpenGLAction "},
        {"Rfull", fresh},
        {"Rflat", "Rflat Rallowtrans Rbackwards OpenGLAction "},
        {"Rdots", "Rflat Rdots Rallowtrans Rbackwards OpenGLAction "},
        {"Rallowtrans", "Rflat Rdots Rbackwards OpenGLAction "},
        {"SoftwareAction", "Rflat Rdots Rbackwards SoftwareAction "},
        {"SoftwareAction", "Rflat Rdots Rbackwards SoftwareAction "},
        {"Rbackwards", "Rflat Rdots SoftwareAction "},
        {"D3DAction", "Rflat Rdots D3DAction "}};
    for (const auto& [command, expected] : steps) {
        run(command);
        EXPECT_EQ(marks(), expected) << command;
    }
    const ViewState& view = window().view();
    EXPECT_TRUE(view.dots && !view.allowTransparent && !view.showHiddenTransparent);
    EXPECT_EQ(view.lastDrawnMode, RenderMode::FlatShading) << "redrawn at once";
    form().documents()[0]->setFocus();
    EXPECT_EQ(marks(), fresh);
    form().documents()[1]->setFocus();
    EXPECT_EQ(marks(), "Rflat Rdots D3DAction ");
    // menus and buttons stay untouched where nothing changes
    int changes = 0;
    for (QAction* action : form().findChildren<QAction*>()) {
        QObject::connect(action, &QAction::changed, &form(), [&changes] { ++changes; });
    }
    settle();
    EXPECT_EQ(changes, 0);
    action("Rwire").trigger();
    EXPECT_GT(changes, 0);
}

TEST_F(RenderCommandsTest, OkPushesColoursIntoAllWindowsAndCancelIntoNewOnesOnly) {
    const TMainForm& frame = start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
    const QList<TMDIChild*> windows = frame.documents();
    windows[0]->setDrawingInterface(DrawApi::Software);
    recolor({{"ThreeDWinColorEdit", 0xff0a141eU}, {"TwoDWinColorEdit", 0xff28323cU}}, false);
    for (TMDIChild* window : windows) {
        EXPECT_EQ(window->view().colors.background, 0xff000000U);
        EXPECT_EQ(paper(*window), 0xffffffffU);
    }
    run("FileNew1");
    TMDIChild& added = window();
    EXPECT_EQ(corner(added), 0xff0a141eU);
    EXPECT_EQ(panel(added, "Panel1"), 0xff0a141eU);
    EXPECT_EQ(paper(added), 0xffffffffU) << "the planes have their own colours until the next OK";

    windows[1]->setFocus();
    recolor({{"WireRenderSelectedChildEdit", 0xff010203U},
             {"WorldAxesEdit", 0xff46505aU},
             {"ObjAxesEdit", 0xffff00ffU}},
            true);
    for (TMDIChild* window : frame.documents()) {
        EXPECT_EQ(window->view().colors.background, 0xff0a141eU);
        EXPECT_EQ(window->view().colors.selectedChild, 0xff010203U);
        EXPECT_EQ(window->view().colors.selected, ViewColors().selected);
        EXPECT_EQ(window->view().colors.unselected, ViewColors().unselected);
    }
    EXPECT_EQ(corner(*windows[1]), 0xff0a141eU) << "the active one is redrawn";
    EXPECT_EQ(paper(*windows[1]), 0xff28323cU);
    EXPECT_EQ(panel(added, "Panel5"), 0xff28323cU);
    EXPECT_EQ(paper(added), 0xffffffffU) << "the others show theirs as soon as they are drawn";
    added.render3d();
    EXPECT_EQ(paper(added), 0xff28323cU);
    const QImage plane = child<TImage>(added, "Image2").picture().copy();
    EXPECT_EQ(plane.pixel(plane.width() / 2, 0), 0xff46505aU) << "the axes of an empty model";
}

} // namespace
} // namespace korvane::test
