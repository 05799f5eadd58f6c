#include "render/forms/TThreeDWinFrame.h"

#include "render/drags/ViewPlaces.h"
#include "support/ModelWindowTest.h"

namespace korvane::test {
namespace {

/// The 3D view with software drawing. These tests also run on a scaled screen: pictures and mouse
/// positions are in device pixels.
class TThreeDWinFrameTest : public ModelWindowTest {
  protected:
    TThreeDWinFrameTest() { drawBySoftware(); }

    [[nodiscard]] QImage picture() const { return ModelWindowTest::picture("Image1"); }
    [[nodiscard]] QWidget& view() const { return child<TThreeDWinFrame>(window(), "ThreeDWin"); }
};

TEST_F(TThreeDWinFrameTest, PicturesHaveTheSizeOfTheirControlsInDevicePixels) {
    const qreal ratio = form().devicePixelRatioF();
    window().showNormal();
    window().resize(511, 307);
    settle();
    const auto& area = child<QWidget>(window(), "Panel3");
    for (const char* name : {"Image1", "Image2", "Image3", "Image4"}) {
        const QSize size = image(name).parentWidget()->size();
        EXPECT_EQ(size, viewPlaces(area.size(), true).space.size()) << name;
        EXPECT_EQ(image(name).picture().size(), (QSizeF(size) * ratio).toSize()) << name;
    }
    EXPECT_NE(image("Image1").grab().toImage().convertToFormat(QImage::Format_RGB32), picture());
    image("Image1").setMarks({});
    child<QWidget>(window(), "Image1MenuButton").hide();
    EXPECT_EQ(image("Image1").grab().toImage().convertToFormat(QImage::Format_RGB32), picture());
    child<QAction>(window(), "zoom").trigger();
    EXPECT_EQ(image("Image3").cursor().pixmap().devicePixelRatio(), ratio);
}

TEST_F(TThreeDWinFrameTest, TheMouseTurnsAndZoomsTheModelAndEscapeCancels) {
    const float start = window().view().angles.yaw;
    const QImage before = picture();
    for (const bool cancelled : {true, false}) {
        press("Image1", {50, 50});
        move("Image1", {70, 55});
        const QImage during = picture();
        EXPECT_NE(during, before);
        EXPECT_TRUE(view().hasFocus());
        cancelled ? QTest::keyClick(&view(), Qt::Key_Escape) : release("Image1", {90, 60});
        EXPECT_NE(picture(), during);
        EXPECT_EQ(picture() == before, cancelled);
    }
    const auto way = static_cast<float>(40 * form().devicePixelRatioF());
    const auto middle = static_cast<float>(picture().width() / 2);
    EXPECT_NEAR(window().view().angles.yaw, start - way / middle * viewPi, 1e-4);
    const float distance = document().CameraDistance;
    roll(view());
    EXPECT_LT(document().CameraDistance, distance);
}

TEST(TImage, PaintsTheOverlayOverThePicture) {
    TImage image;
    image.resize(4, 3);
    QImage red(4, 3, QImage::Format_RGB32);
    red.fill(0xffff0000U);
    QImage overlay(red.size(), QImage::Format_ARGB32_Premultiplied);
    overlay.fill(0);
    overlay.setPixel(1, 2, 0xff00ff00U);
    image.showPicture(red, overlay);
    red.setPixel(1, 2, 0xff00ff00U);
    EXPECT_EQ(image.grab().toImage().convertToFormat(QImage::Format_RGB32), red);
}

} // namespace
} // namespace korvane::test
