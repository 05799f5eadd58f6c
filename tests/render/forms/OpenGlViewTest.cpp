#include "render/forms/TImage.h"
#include "render/forms/TThreeDWinFrame.h"
#include "render/gl/GlOffscreen.h"
#include "support/MainFormTest.h"
#include "support/Skip.h"

#include <QMessageBox>
#include <QOpenGLContext>

#include <algorithm>
#include <utility>

namespace korvane::test {
namespace {

const QString skiff = QStringLiteral(KORVANE_SAMPLES "/skiff.xsi");
constexpr const char* noContext = ":-)~ hrc == NULL";
const QString windmill = QStringLiteral(KORVANE_SAMPLES "/windmill.xsi");

/// A driver that fails a given number of times.
class FailingDriver : public GlDriver {
  public:
    bool create(QOpenGLContext& context) override {
        QObject::connect(&context, &QObject::destroyed, [this] { --contexts; });
        ++contexts;
        return std::exchange(failingCreates, std::max(failingCreates - 1, 0)) == 0 &&
               GlDriver::create(context);
    }
    bool makeCurrent(QOpenGLContext& context, QSurface& surface) override {
        if (failsAfter >= 0 && failsAfter-- == 0) {
            return false;
        }
        return std::exchange(failingCurrents, std::max(failingCurrents - 1, 0)) == 0 &&
               GlDriver::makeCurrent(context, surface);
    }

    int failingCreates = 0;
    int failingCurrents = 0;
    int failsAfter = -1; ///< calls of makeCurrent() before one fails; -1 for none
    int contexts = 0;    ///< that exist
};

TThreeDWinFrame& viewOf(TMDIChild& window) {
    return child<TThreeDWinFrame>(window, "ThreeDWin");
}

QImage pictureOf(TMDIChild& window) {
    settle();
    return child<TImage>(viewOf(window), "Image1").picture().copy();
}

class GlFailureTest : public MainFormTest {
  protected:
    void expectMessage(const char* text) {
        answerBox(QStringLiteral("GlFailure"), QString::fromLatin1(text),
                  QStringLiteral("Korvane II Model Editor"), QMessageBox::Ok, QMessageBox::Ok);
    }
};

/// The 3D view with OpenGL. Reports that it is skipped on a machine without OpenGL.
class OpenGlViewTest : public GlFailureTest {
  protected:
    void SetUp() override {
        if (GlContext().status() != GlStatus::Works) {
            KORVANE_SKIP("no OpenGL here");
        }
    }
    void TearDown() override {
        for (TMDIChild* open : forms_ ? form().documents() : QList<TMDIChild*>()) {
            if (const GlOffscreen* gl = viewOf(*open).openGl()) {
                EXPECT_EQ(gl->view().counts().errors, 0U);
            }
        }
    }
    [[nodiscard]] const GlCounts& counts() const {
        return viewOf(window()).openGl()->view().counts();
    }
};

TEST_F(OpenGlViewTest, SwitchingKeepsThePicturesAndADragRecordsNothing) {
    start({windmill});
    settle();
    const std::size_t once = counts().meshes;
    EXPECT_GT(once, 0U);
    window().render3d();
    window().render3d();
    settle();
    EXPECT_EQ(counts().meshes, 2 * once) << "several requests are one drawing";
    run("Rflat");
    for (int round = 0; round <= GlLists::drawsBeforeRecording; ++round) {
        window().render3d();
        settle();
    }
    const std::size_t recorded = counts().recorded;
    EXPECT_GT(recorded, 0U);
    const QImage before = pictureOf(window());
    TThreeDWinFrame& view = viewOf(window());
    QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, {50, 50});
    moveHolding(view, {90, 50});
    settle();
    QTest::mouseRelease(&view, Qt::LeftButton, Qt::NoModifier, {100, 50});
    const QImage turned = pictureOf(window());
    EXPECT_NE(turned, before);
    EXPECT_EQ(counts().recorded, recorded);
    const std::size_t drawn = counts().meshes;
    child<TImage>(view, "Image1").update();
    settle();
    EXPECT_EQ(counts().meshes, drawn) << "a current picture is not drawn again";

    run("SoftwareAction");
    EXPECT_EQ(view.openGl(), nullptr);
    const QImage bySoftware = pictureOf(window());
    for (int round = 0; round < 24; ++round) {
        window().setDrawingInterface(round % 2 == 0 ? DrawApi::OpenGL : DrawApi::Software);
        EXPECT_EQ(pictureOf(window()), round % 2 == 0 ? turned : bySoftware) << round;
    }
}

TEST_F(OpenGlViewTest, WindowsWithDifferentModesAreIndependent) {
    start({windmill, windmill});
    TMDIChild& wires = window();
    TMDIChild& smooth = *form().documents().at(0);
    run("Rwire");
    run("WindowTileVertical1");
    const QImage wirePicture = pictureOf(wires);
    const QImage smoothPicture = pictureOf(smooth);
    EXPECT_NE(wirePicture, smoothPicture);
    wires.render3d();
    smooth.render3d();
    EXPECT_EQ(pictureOf(wires), wirePicture);
    EXPECT_EQ(pictureOf(smooth), smoothPicture);
}

TEST_F(OpenGlViewTest, AFailingDriverIsRetriedOnceThenSoftwareDraws) {
    start({skiff});
    const QImage picture = pictureOf(window());
    FailingDriver driver;
    viewOf(window()).setDriver(driver);
    run("SoftwareAction");
    const QImage bySoftware = pictureOf(window());
    run("OpenGLAction");
    EXPECT_EQ(pictureOf(window()), picture);
    const auto redrawn = [this] {
        window().render3d();
        QImage shown = pictureOf(window());
        settle();
        EXPECT_TRUE(allAnswered());
        return shown;
    };
    // the driver was reset: the context and its contents are lost
    driver.failingCurrents = 1;
    EXPECT_EQ(redrawn(), picture);
    driver.failsAfter = 1; // while drawing
    EXPECT_EQ(redrawn(), picture);
    EXPECT_EQ(driver.failsAfter, -1);
    // it fails for good
    driver.failingCurrents = 1000;
    expectMessage("Could not MakeCurrent");
    EXPECT_EQ(redrawn(), bySoftware);
    EXPECT_EQ(redrawn(), bySoftware) << "reported once";
    // it recovers, but the first attempt fails
    run("SoftwareAction");
    driver.failingCurrents = 0;
    driver.failingCreates = 1;
    expectMessage(noContext);
    run("OpenGLAction");
    EXPECT_EQ(redrawn(), bySoftware);
    run("SoftwareAction");
    run("OpenGLAction");
    EXPECT_EQ(redrawn(), picture);
    EXPECT_EQ(driver.contexts, 1);
    window().closeUnasked();
    settle();
    EXPECT_EQ(driver.contexts, 0);
}

/// Runs only on a platform without OpenGL.
class WithoutGl : public GlFailureTest {
  protected:
    void SetUp() override {
        if (GlContext().status() == GlStatus::Works) {
            KORVANE_SKIP("there is OpenGL here");
        }
    }
};

TEST_F(WithoutGl, ReportsItAndStillShowsTheModel) {
    expectMessage(noContext);
    start({skiff});
    const QImage shown = pictureOf(window());
    EXPECT_GT(countOtherThan(shown, 0xff000000U), 1000U);
    run("SoftwareAction");
    EXPECT_EQ(pictureOf(window()), shown);
    expectMessage(noContext);
    run("OpenGLAction");
    EXPECT_EQ(pictureOf(window()), shown);
}

} // namespace
} // namespace korvane::test
