#include "render/forms/TThreeDWinFrame.h"

#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QCheckBox>
#include <QLabel>
#include <QWheelEvent>

namespace korvane::test {
namespace {

/// The 3D view by software. Its tests run at a scale of the screen as well: sizes of pictures and
/// places of the mouse are those of device pixels.
class TThreeDWinFrameTest : public MainFormTest {
  protected:
    TThreeDWinFrameTest() {
        start({write("small.xsi", smallModel())});
        window().setDrawingInterface(DrawApi::Software);
        settle();
    }

    [[nodiscard]] TImage& image(const char* name) const { return child<TImage>(window(), name); }
    [[nodiscard]] QImage picture() const { return image("Image1").picture().copy(); }
    [[nodiscard]] TThreeDWinFrame& view() const {
        return child<TThreeDWinFrame>(window(), "ThreeDWin");
    }
    [[nodiscard]] const CameraAngles& angles() const { return window().view().angles; }

    /// Presses the left button at (50, 50) and moves to the place.
    void drag(QPoint to) const {
        QTest::mousePress(&image("Image1"), Qt::LeftButton, Qt::NoModifier, {50, 50});
        moveHolding(image("Image1"), to);
    }
};

TEST_F(TThreeDWinFrameTest, PicturesHaveTheSizeOfTheirControlsOnTheScreen) {
    const qreal ratio = form().devicePixelRatioF();
    const QImage before = picture();
    const float distance = document().CameraDistance;
    EXPECT_GT(before.width(), 100);
    for (const bool planes : {true, false}) {
        child<QCheckBox>(window(), "TwoDVisibleBox").setChecked(planes);
        settle();
        EXPECT_EQ(picture().size(), (QSizeF(image("Image1").size()) * ratio).toSize());
        EXPECT_EQ(image("Image1").grab().toImage().convertToFormat(QImage::Format_RGB32),
                  picture());
    }
    EXPECT_GT(picture().width(), before.width());
    EXPECT_EQ(document().CameraDistance, distance) << "a resize leaves the camera alone";
    EXPECT_EQ(image("Image3").picture().size(), (QSizeF(image("Image3").size()) * ratio).toSize());
    child<QAction>(window(), "zoom").trigger();
    EXPECT_EQ(image("Image3").cursor().pixmap().devicePixelRatio(), ratio);
}

TEST_F(TThreeDWinFrameTest, TheMouseTurnsAndZoomsTheModelAndEscapeCancels) {
    const CameraAngles start = angles();
    const QImage before = picture();
    drag({70, 55});
    EXPECT_TRUE(view().hasFocus());
    const QImage during = picture();
    EXPECT_NE(during, before);
    QTest::keyClick(&view(), Qt::Key_Escape);
    EXPECT_EQ(angles(), start);
    EXPECT_EQ(picture(), before);
    drag({70, 55});
    EXPECT_EQ(picture(), during);
    QTest::mouseRelease(&image("Image1"), Qt::LeftButton, Qt::NoModifier, {90, 60});
    EXPECT_NE(picture(), during);
    const auto ratio = static_cast<float>(form().devicePixelRatioF());
    const auto middle = static_cast<float>(picture().width() / 2);
    EXPECT_NEAR(angles().yaw, start.yaw - 40 * ratio / middle * viewPi, 1e-4);
    const float distance = document().CameraDistance;
    QWheelEvent wheel({50, 50}, view().mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view(), &wheel);
    EXPECT_LT(document().CameraDistance, distance);
}

TEST_F(TThreeDWinFrameTest, AnEmptyPictureSaysWhyInItsCorner) {
    const auto& reason = child<QLabel>(window(), "ReasonLabel");
    for (const bool hidden : {false, true, false}) {
        document().Root.ViewFlags[0] = !hidden;
        window().render3d();
        EXPECT_EQ(reason.isVisible(), hidden);
        if (hidden) {
            EXPECT_EQ(reason.text(), QStringLiteral("Every mesh is hidden."));
            EXPECT_GE(reason.width(), reason.sizeHint().width());
            EXPECT_EQ(view().childAt(reason.geometry().center()), &image("Image1"))
                << "the mouse goes through";
        }
    }
    const QImage before = picture();
    select(bodyNode + "/Frame frm-wing"); // has no mesh
    EXPECT_NE(picture(), before) << "the root's box is gone";
}

TEST(TImage, LaysAnotherPictureOverItsOwn) {
    TImage image;
    image.resize(4, 3);
    QImage red(4, 3, QImage::Format_RGB32);
    red.fill(0xffff0000U);
    QImage overlay(red.size(), QImage::Format_ARGB32_Premultiplied);
    overlay.fill(0);
    overlay.setPixel(1, 2, 0xff00ff00U);
    image.showPicture(red, overlay);
    EXPECT_EQ(image.picture(), red);
    red.setPixel(1, 2, 0xff00ff00U);
    EXPECT_EQ(image.grab().toImage().convertToFormat(QImage::Format_RGB32), red);
}

} // namespace
} // namespace korvane::test
