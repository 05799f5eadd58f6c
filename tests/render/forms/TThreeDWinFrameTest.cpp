#include "render/forms/TThreeDWinFrame.h"

#include "app/widgets/DevicePixels.h"
#include "model/forms/TMDIChild.h"
#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QTest>
#include <QWheelEvent>

namespace korvane::test {
namespace {

class TThreeDWinFrameTest : public MainFormTest {
  protected:
    TThreeDWinFrameTest() {
        start({write("small.xsi", smallModel())});
        window().setDrawingInterface(DrawApi::Software);
        settle();
        image_ = &child<TImage>(window(), "Image1");
        view_ = &child<TThreeDWinFrame>(window(), "ThreeDWin");
    }

    QImage picture() const { return image_->picture().copy(); }
    float distance() const { return document().CameraDistance; }
    void press(Qt::MouseButton button, QPoint at) {
        QTest::mousePress(image_, button, Qt::NoModifier, at);
    }
    void drag(Qt::MouseButton button, QPoint at) { moveHolding(*image_, at, button); }
    void release(Qt::MouseButton button, QPoint at) {
        QTest::mouseRelease(image_, button, Qt::NoModifier, at);
    }

    TImage* image_;
    TThreeDWinFrame* view_;
};

TEST_F(TThreeDWinFrameTest, ShowsTheModelInTheSizeOfTheControl) {
    const QImage shown = picture();
    EXPECT_EQ(shown.size(), sizeInPixels(*image_));
    EXPECT_GT(shown.width(), 100);
    // on the screen it is what was drawn
    EXPECT_EQ(image_->grab().toImage().convertToFormat(QImage::Format_RGB32), shown);
    const float distance = this->distance();
    child<QCheckBox>(window(), "TwoDVisibleBox").setChecked(false);
    settle();
    EXPECT_EQ(picture().size(), sizeInPixels(*image_));
    EXPECT_GT(picture().width(), shown.width());
    EXPECT_EQ(this->distance(), distance) << "a resize leaves the camera alone";
}

TEST_F(TThreeDWinFrameTest, LeftButtonTurnsTheModelWhileItIsDragged) {
    const QImage before = picture();
    const CameraAngles start = window().view().angles;
    press(Qt::LeftButton, {50, 50});
    EXPECT_TRUE(view_->hasFocus());
    drag(Qt::LeftButton, {70, 55});
    const QImage during = picture();
    EXPECT_NE(during, before);
    EXPECT_NE(window().view().angles.pitch, start.pitch);
    release(Qt::LeftButton, {90, 60});
    EXPECT_NE(picture(), during);
    const CameraAngles turned = window().view().angles;
    const float cx = static_cast<float>(picture().width() / 2);
    const auto ratio = static_cast<float>(image_->devicePixelRatioF());
    EXPECT_NEAR(turned.yaw, start.yaw - 40 * ratio / cx * viewPi, 1e-4);
    QTest::mouseMove(image_, {20, 20});
    EXPECT_EQ(window().view().angles, turned) << "the drag is over";
}

TEST_F(TThreeDWinFrameTest, RightButtonAndWheelZoom) {
    const float start = distance();
    const QImage before = picture();
    press(Qt::RightButton, {50, 50});
    drag(Qt::RightButton, {50, 60});
    release(Qt::RightButton, {50, 60});
    EXPECT_GT(distance(), start);
    EXPECT_NE(picture(), before);
    const float farther = distance();
    QWheelEvent wheel({50, 50}, view_->mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view_, &wheel);
    EXPECT_LT(distance(), farther);
}

TEST_F(TThreeDWinFrameTest, EscapeAndLosingTheMouseCancelADrag) {
    const CameraAngles start = window().view().angles;
    const QImage before = picture();
    press(Qt::LeftButton, {50, 50});
    drag(Qt::LeftButton, {70, 55});
    QTest::keyClick(view_, Qt::Key_Escape);
    EXPECT_EQ(window().view().angles, start);
    EXPECT_EQ(picture(), before);
    drag(Qt::LeftButton, {90, 55});
    EXPECT_EQ(window().view().angles, start) << "cancelled for good";
    press(Qt::LeftButton, {50, 50});
    drag(Qt::LeftButton, {70, 55});
    tree().setFocus();
    EXPECT_EQ(window().view().angles, start);
}

TEST_F(TThreeDWinFrameTest, AnEmptyPictureSaysWhyInItsCorner) {
    const auto& reason = child<QLabel>(window(), "ReasonLabel");
    EXPECT_FALSE(reason.isVisible());
    document().Root.ViewFlags[0] = false;
    window().render3d();
    EXPECT_TRUE(reason.isVisible());
    EXPECT_EQ(reason.text().toStdString(), "Every mesh is hidden.");
    EXPECT_GE(reason.width(), reason.sizeHint().width());
    EXPECT_EQ(view_->childAt(reason.geometry().center()), image_) << "the mouse goes through";
    document().Root.ViewFlags[0] = true;
    window().render3d();
    EXPECT_FALSE(reason.isVisible());
}

TEST(TImage, LaysAnotherPictureOverItsOwn) {
    TImage image;
    image.resize(4, 3);
    QImage red(sizeInPixels(image), QImage::Format_RGB32);
    red.fill(0xffff0000U);
    QImage overlay(red.size(), QImage::Format_ARGB32_Premultiplied);
    overlay.fill(0);
    overlay.setPixel(1, 2, 0xff00ff00U);
    image.showPicture(red, overlay);
    QImage expected = red;
    expected.setPixel(1, 2, 0xff00ff00U);
    EXPECT_EQ(image.grab().toImage().convertToFormat(QImage::Format_RGB32), expected);
    EXPECT_EQ(image.picture(), red);
}

TEST_F(TThreeDWinFrameTest, SelectingAFrameShows) {
    const QImage before = picture();
    select(bodyNode + "/Frame frm-wing"); // has no mesh
    EXPECT_NE(picture(), before) << "the root's box is gone";
}

} // namespace
} // namespace korvane::test
