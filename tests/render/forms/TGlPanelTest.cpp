#include "render/forms/TGlPanel.h"

#include "render/forms/TImage.h"
#include "render/gl/GlContext.h"
#include "render/picture/Bitmap.h"
#include "support/MainFormTest.h"
#include "support/Skip.h"

#include <QMessageBox>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLVersionFunctionsFactory>
#include <QTest>

namespace korvane::test {
namespace {

QString sample(const char* name) {
    return QStringLiteral(KORVANE_SAMPLES "/") + QString::fromLatin1(name);
}

/// What the driver holds for all windows of a frame.
struct Held {
    int textures = 0;
    int lists = 0;

    bool operator==(const Held&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Held& held) {
    return out << held.textures << " textures and " << held.lists << " lists";
}

Held heldWith(QOpenGLContext& shared) {
    QOpenGLContext context;
    context.setFormat(glFormat());
    context.setShareContext(&shared);
    QOffscreenSurface surface;
    surface.setFormat(glFormat());
    surface.create();
    Held held;
    if (!context.create()) {
        ADD_FAILURE() << "no context that shares";
        return held;
    }
    const GlCurrent current(context, surface);
    auto& gl = *QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_2_1>(&context);
    gl.initializeOpenGLFunctions();
    constexpr GLuint names = 20000;
    for (GLuint name = 1; name < names; ++name) {
        held.textures += gl.glIsTexture(name) != GL_FALSE ? 1 : 0;
        held.lists += gl.glIsList(name) != GL_FALSE ? 1 : 0;
    }
    return held;
}

/// The 3D view through OpenGL. Skips clearly where a machine has none.
class TGlPanelTest : public MainFormTest {
  protected:
    void SetUp() override {
        if (probeContext() != GlProbe::Works) {
            KORVANE_SKIP("no OpenGL here");
        }
    }
    static TGlPanel& panel(TMDIChild& window) { return child<TGlPanel>(window, "GlPanel"); }
    static QImage picture(TMDIChild& window) {
        settle();
        return panel(window).grabFramebuffer().convertToFormat(QImage::Format_RGB32);
    }
    static std::size_t drawnPixels(const QImage& picture) {
        return countOtherThan(picture, 0xff000000U);
    }
    /// Draws until all that rests is recorded.
    static void drawOften(TMDIChild& window) {
        for (int round = 0; round <= GlLists::drawsBeforeRecording; ++round) {
            window.render3d();
            settle();
        }
    }
    [[nodiscard]] TMDIChild& active() const { return *form().activeDocument(); }
};

TEST_F(TGlPanelTest, MenuSwitchesTheInterfaceAndKeepsTheView) {
    start({sample("skiff.xsi")});
    run("Rflat");
    const QImage gl = picture(active());
    EXPECT_GT(drawnPixels(gl), 1000U);
    const auto& image = child<TImage>(active(), "Image1");
    EXPECT_FALSE(image.isVisible());
    active().session()->view().angles.yaw += 1;
    const CameraAngles angles = active().view().angles;
    const float distance = active().document()->CameraDistance;

    run("SoftwareAction");
    EXPECT_EQ(active().findChild<TGlPanel*>(), nullptr);
    EXPECT_TRUE(image.isVisible());
    EXPECT_EQ(image.picture().size(), gl.size());
    const auto bySoftware = static_cast<double>(drawnPixels(image.picture()));
    run("OpenGLAction");
    EXPECT_FALSE(image.isVisible());
    EXPECT_NEAR(static_cast<double>(drawnPixels(picture(active()))), bySoftware, bySoftware * 0.05);
    EXPECT_EQ(active().view().angles, angles);
    EXPECT_EQ(active().document()->CameraDistance, distance);
    EXPECT_EQ(active().view().mode, RenderMode::FlatShading);
    EXPECT_EQ(panel(active()).view().counts().errors, 0U);
}

TEST_F(TGlPanelTest, SwitchingAndClosingLeaveNothingWithTheDriver) {
    start();
    run("FileNew1");
    TMDIChild& stays = active();
    drawOften(stays);
    const Held before = heldWith(*panel(stays).context());

    Q_EMIT form().filesDropped({sample("windmill.xsi"), sample("skiff.xsi")});
    settle();
    TMDIChild& opened = active();
    drawOften(opened);
    const Held open = heldWith(*panel(stays).context());
    EXPECT_GT(open.textures, before.textures);
    EXPECT_GT(open.lists, before.lists);
    for (int round = 0; round < 100; ++round) {
        opened.setDrawingInterface(DrawApi::Software);
        opened.setDrawingInterface(DrawApi::OpenGL);
        if (round % 10 == 0) {
            drawOften(opened);
            EXPECT_EQ(panel(opened).view().counts().errors, 0U);
        }
    }
    drawOften(opened);
    EXPECT_EQ(heldWith(*panel(stays).context()), open);
    opened.closeUnasked();
    settle();
    active().closeUnasked();
    settle();
    EXPECT_EQ(heldWith(*panel(stays).context()), before);
}

TEST_F(TGlPanelTest, WindowsWithDifferentModesKeepApart) {
    start({sample("windmill.xsi"), sample("windmill.xsi")});
    TMDIChild& wires = active();
    run("Rwire");
    TMDIChild& smooth = *form().documents().at(0);
    run("WindowTileVertical1");
    const QImage wirePicture = picture(wires);
    const QImage smoothPicture = picture(smooth);
    EXPECT_EQ(wirePicture.size(), smoothPicture.size());
    EXPECT_NE(wirePicture, smoothPicture);
    for (int round = 0; round < 6; ++round) {
        wires.render3d();
        smooth.render3d();
        settle();
        EXPECT_EQ(picture(wires), wirePicture);
        EXPECT_EQ(picture(smooth), smoothPicture);
    }
    EXPECT_EQ(panel(wires).view().counts().errors, 0U);
    EXPECT_EQ(panel(smooth).view().counts().errors, 0U);
    // back and forth: textures come back as well
    smooth.setFocus();
    run("Rwire");
    EXPECT_EQ(picture(smooth), wirePicture);
    run("Rfull");
    EXPECT_EQ(picture(smooth), smoothPicture);
}

TEST_F(TGlPanelTest, DraggingTurnsTheModelAndRecordsNothing) {
    start({sample("windmill.xsi")});
    TGlPanel& panel = this->panel(active());
    drawOften(active());
    const std::size_t recorded = panel.view().counts().recorded;
    EXPECT_GT(recorded, 0U);
    const QImage before = picture(active());
    const float yaw = active().view().angles.yaw;
    QTest::mousePress(&panel, Qt::LeftButton, Qt::NoModifier, {50, 50});
    for (int x = 60; x <= 100; x += 10) {
        moveHolding(panel, {x, 50});
        settle();
    }
    QTest::mouseRelease(&panel, Qt::LeftButton, Qt::NoModifier, {100, 50});
    EXPECT_LT(active().view().angles.yaw, yaw);
    EXPECT_NE(picture(active()), before);
    EXPECT_EQ(panel.view().counts().recorded, recorded);
    EXPECT_EQ(panel.view().counts().errors, 0U);
    // a picture that is up to date is not drawn again
    const std::size_t drawn = panel.view().counts().meshes;
    panel.update();
    settle();
    EXPECT_EQ(panel.view().counts().meshes, drawn);
}

/// For a platform without OpenGL.
class WithoutGl : public MainFormTest {
  protected:
    void SetUp() override {
        if (probeContext() == GlProbe::Works) {
            KORVANE_SKIP("there is OpenGL here");
        }
    }
    void expectMessage() {
        answerBox(QStringLiteral("GlFailure"), QStringLiteral(":-)~ hrc == NULL"),
                  QStringLiteral("Korvane II Model Editor"), QMessageBox::Ok, QMessageBox::Ok);
    }
    [[nodiscard]] QImage picture() const {
        return child<TImage>(*form().activeDocument(), "Image1").picture().copy();
    }
};

TEST_F(WithoutGl, TheUserIsToldAndStillSeesTheModel) {
    expectMessage();
    start({sample("skiff.xsi")});
    settle();
    ASSERT_TRUE(allAnswered());
    const QImage shown = picture();
    EXPECT_FALSE(shown.isNull());
    EXPECT_TRUE(action("OpenGLAction").isChecked());
    run("SoftwareAction");
    EXPECT_EQ(picture(), shown);
    expectMessage();
    run("OpenGLAction");
    EXPECT_TRUE(action("OpenGLAction").isChecked());
    EXPECT_EQ(picture(), shown);
    run("Rwire");
    EXPECT_NE(picture(), shown);
}

} // namespace
} // namespace korvane::test
