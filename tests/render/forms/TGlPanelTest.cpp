#include "render/forms/TGlPanel.h"

#include "render/forms/TImage.h"
#include "render/gl/GlContext.h"
#include "render/picture/Bitmap.h"
#include "support/MainFormTest.h"
#include "support/Skip.h"

#include <QMessageBox>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLVersionFunctionsFactory>

namespace korvane::test {
namespace {

const QString skiff = QStringLiteral(KORVANE_SAMPLES "/skiff.xsi");
const QString windmill = QStringLiteral(KORVANE_SAMPLES "/windmill.xsi");

TGlPanel& panel(TMDIChild& window) {
    return child<TGlPanel>(window, "GlPanel");
}

QImage pictureOf(TMDIChild& window) {
    settle();
    return panel(window).grabFramebuffer().convertToFormat(QImage::Format_RGB32);
}

/// How many textures and display lists the driver holds for all windows of the frame.
std::pair<int, int> heldWith(TMDIChild& window) {
    panel(window).makeCurrent();
    auto* gl = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_2_1>(panel(window).context());
    gl->initializeOpenGLFunctions();
    std::pair held(0, 0);
    for (GLuint name = 1; name < 20000; ++name) {
        held.first += gl->glIsTexture(name) != GL_FALSE ? 1 : 0;
        held.second += gl->glIsList(name) != GL_FALSE ? 1 : 0;
    }
    panel(window).doneCurrent();
    return held;
}

/// Draws until all that rests is recorded.
void drawOften(TMDIChild& window) {
    for (int round = 0; round <= GlLists::drawsBeforeRecording; ++round) {
        window.render3d();
        settle();
    }
}

/// The 3D view through OpenGL. Skips clearly where a machine has none.
class TGlPanelTest : public MainFormTest {
  protected:
    void SetUp() override {
        if (probeContext() != GlProbe::Works) {
            KORVANE_SKIP("no OpenGL here");
        }
    }
    void TearDown() override {
        for (TMDIChild* open : forms_ ? form().documents() : QList<TMDIChild*>()) {
            EXPECT_EQ(panel(*open).view().counts().errors, 0U);
        }
    }
};

TEST_F(TGlPanelTest, InterfacesShowTheSameAndADragRecordsNothing) {
    start({windmill});
    run("Rflat");
    drawOften(window());
    const GlCounts& counts = panel(window()).view().counts();
    const std::size_t recorded = counts.recorded;
    EXPECT_GT(recorded, 0U);
    const QImage before = pictureOf(window());
    const CameraAngles start = window().view().angles;
    QTest::mousePress(&panel(window()), Qt::LeftButton, Qt::NoModifier, {50, 50});
    for (int x = 60; x <= 100; x += 10) {
        moveHolding(panel(window()), {x, 50});
        settle();
    }
    QTest::mouseRelease(&panel(window()), Qt::LeftButton, Qt::NoModifier, {100, 50});
    EXPECT_LT(window().view().angles.yaw, start.yaw);
    const QImage turned = pictureOf(window());
    EXPECT_NE(turned, before);
    EXPECT_EQ(counts.recorded, recorded);
    const std::size_t drawn = counts.meshes;
    panel(window()).update();
    settle();
    EXPECT_EQ(counts.meshes, drawn) << "a picture that is up to date is not drawn again";

    const auto& image = child<TImage>(window(), "Image1");
    EXPECT_FALSE(image.isVisible());
    run("SoftwareAction");
    EXPECT_EQ(window().findChild<TGlPanel*>(), nullptr);
    EXPECT_TRUE(image.isVisible());
    EXPECT_EQ(image.picture().size(), turned.size());
    const auto drawnPixels = static_cast<double>(countOtherThan(image.picture(), 0xff000000U));
    EXPECT_GT(drawnPixels, 1000);
    EXPECT_NEAR(static_cast<double>(countOtherThan(turned, 0xff000000U)), drawnPixels,
                drawnPixels * 0.05);
    run("OpenGLAction");
    EXPECT_FALSE(image.isVisible());
    EXPECT_EQ(pictureOf(window()), turned);
}

TEST_F(TGlPanelTest, SwitchingAndClosingLeaveNothingWithTheDriver) {
    start();
    run("FileNew1");
    TMDIChild& stays = window();
    drawOften(stays);
    const auto before = heldWith(stays);
    Q_EMIT form().filesDropped({windmill, skiff});
    settle();
    drawOften(window());
    const auto open = heldWith(stays);
    EXPECT_GT(open.first, before.first);
    EXPECT_GT(open.second, before.second);
    for (int round = 0; round < 100; ++round) {
        window().setDrawingInterface(DrawApi::Software);
        window().setDrawingInterface(DrawApi::OpenGL);
        if (round % 10 == 0) {
            drawOften(window());
        }
    }
    drawOften(window());
    EXPECT_EQ(heldWith(stays), open);
    for (int closed = 0; closed < 2; ++closed) {
        window().closeUnasked();
        settle();
    }
    EXPECT_EQ(heldWith(stays), before);
}

TEST_F(TGlPanelTest, WindowsWithDifferentModesKeepApart) {
    start({windmill, windmill});
    TMDIChild& wires = window();
    TMDIChild& smooth = *form().documents().at(0);
    run("Rwire");
    run("WindowTileVertical1");
    const QImage wirePicture = pictureOf(wires);
    const QImage smoothPicture = pictureOf(smooth);
    EXPECT_NE(wirePicture, smoothPicture);
    for (int round = 0; round < 6; ++round) {
        wires.render3d();
        smooth.render3d();
        EXPECT_EQ(pictureOf(wires), wirePicture);
        EXPECT_EQ(pictureOf(smooth), smoothPicture);
    }
    // back and forth: textures come back as well
    smooth.setFocus();
    run("Rwire");
    EXPECT_EQ(pictureOf(smooth), wirePicture);
    run("Rfull");
    EXPECT_EQ(pictureOf(smooth), smoothPicture);
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
        return child<TImage>(window(), "Image1").picture().copy();
    }
};

TEST_F(WithoutGl, TheUserIsToldAndStillSeesTheModel) {
    expectMessage();
    start({skiff});
    settle();
    ASSERT_TRUE(allAnswered());
    const QImage shown = picture();
    EXPECT_FALSE(shown.isNull());
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
