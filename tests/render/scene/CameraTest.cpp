#include "render/scene/Camera.h"

#include "render/drags/OrbitDrag.h"
#include "render/scene/StartCamera.h"
#include "support/Scene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace korvane {
namespace {

TEST(ViewGeometry, FollowsFromTheSize) {
    const ViewGeometry view(1025, 768);
    EXPECT_EQ(view.cx, 512);
    EXPECT_EQ(view.cy, 384);
    EXPECT_NEAR(view.f, 512 / std::tan(M_PI / 6) * 768 / 1025, 1e-3);
    const double a = std::atan2(512.0, view.f) - 0.0001;
    EXPECT_FLOAT_EQ(view.planes[2].normal.x, static_cast<float>(-std::cos(a)));
    EXPECT_FLOAT_EQ(view.planes[2].normal.z, static_cast<float>(std::sin(a)));
    EXPECT_FLOAT_EQ(view.planes[0].d, 0.25F);
    // a hair inside of the corner of the picture, and a hair outside
    const Vec3 corner = {512 / view.f, 384 / view.f, 1};
    EXPECT_LT(view.planes[2].distance(corner), 0);
    EXPECT_GT(view.planes[2].distance({corner.x * 0.999F, 0, 1}), 0);
    EXPECT_GT(view.planes[4].distance({0, corner.y * 0.999F, 1}), 0);
}

TEST(ViewGeometry, ViewWithoutASizeHasOnePixelAndItsCentreAtZero) {
    for (const ViewGeometry& view : {ViewGeometry(0, 0), ViewGeometry(-3, -5)}) {
        EXPECT_EQ(view.width, 1);
        EXPECT_EQ(view.height, 1);
        EXPECT_EQ(view.cx, 0);
        EXPECT_EQ(view.cy, 0);
        EXPECT_EQ(view.f, 1.0F);
    }
}

TEST(Camera, BothInterfacesSeeTheSamePicture) {
    for (const CameraAngles& angles :
         {CameraAngles(), CameraAngles{-0.9F, 1, 0}, CameraAngles{1.5F, -4, 0}}) {
        const Matrix4 software = cameraMatrix(DrawApi::Software, angles, 7);
        const Matrix4 gl = cameraMatrix(DrawApi::OpenGL, angles, 7);
        const Vec3 p = {1, -2, 3};
        const Vec3 a = VectorMatrix(p, software);
        const Vec3 b = VectorMatrix(p, gl);
        EXPECT_NEAR(b.x, -a.x, 1e-4);
        EXPECT_NEAR(b.y, a.y, 1e-4);
        EXPECT_NEAR(b.z, -a.z, 1e-4);
        const Vec3 quick = Camera(angles, 7, {0.5F, 0.5F, 0.5F}).toView({1.5F, -1.5F, 3.5F});
        EXPECT_NEAR(quick.x, a.x, 1e-5);
        EXPECT_NEAR(quick.z, a.z, 1e-5);
    }
}

TEST(Camera, MatrixWithRollHasTheGivenElements) {
    const float a = 0.3F;
    const float b = 0.7F;
    const float c = 1.1F;
    const Matrix4 m = cameraMatrix(DrawApi::Software, {a, b, c}, 5);
    EXPECT_FLOAT_EQ(m[1], std::cos(c) * std::sin(a) * std::sin(b) - std::cos(a) * std::sin(c));
    EXPECT_FLOAT_EQ(m[2], std::cos(a) * std::cos(c) * std::sin(b) + std::sin(a) * std::sin(c));
    EXPECT_FLOAT_EQ(m[4], std::cos(b) * std::sin(c));
    EXPECT_FLOAT_EQ(m[6], std::cos(a) * std::sin(b) * std::sin(c) - std::cos(c) * std::sin(a));
    EXPECT_FLOAT_EQ(m[8], -std::sin(b));
    EXPECT_EQ(m[14], 5);
    EXPECT_EQ(m[15], 1);
}

class Drag : public testing::Test {
  protected:
    void press(DragButton button, float x, float y) {
        drag.begin({button, x, y}, angles, distance);
    }
    void move(float x, float y) { drag.update({DragButton::Other, x, y}, view, angles, distance); }

    ViewGeometry view{400, 300};
    OrbitDrag drag;
    CameraAngles angles{0, 1, 0.25F};
    float distance = 10;
};

TEST_F(Drag, HalfTheViewTurnsByPiAndPitchStops) {
    press(DragButton::Left, 100, 100);
    move(-100, 100 + 75.0F);
    EXPECT_FLOAT_EQ(angles.yaw, 1 + viewPi);
    EXPECT_FLOAT_EQ(angles.pitch, viewPi / 2);
    move(-5000, 5000);
    EXPECT_FLOAT_EQ(angles.yaw, 1 + 25.5F * viewPi);
    EXPECT_EQ(angles.pitch, viewPi / 2);
    move(100, -5000);
    EXPECT_EQ(angles.pitch, -viewPi / 2);
    EXPECT_EQ(angles.roll, 0.25F);
    EXPECT_EQ(distance, 10);
    EXPECT_TRUE(drag.end({DragButton::Left, 100, 100}, view, angles, distance));
    EXPECT_EQ(angles.yaw, 1);
    move(0, 0);
    EXPECT_EQ(angles.yaw, 1) << "the drag is over";
}

TEST_F(Drag, CancelGoesBackToBeforeTheFirstOfTwoButtons) {
    press(DragButton::Left, 100, 100);
    move(150, 120);
    press(DragButton::Right, 150, 120);
    move(170, 160);
    EXPECT_NE(angles.yaw, 1);
    EXPECT_NE(distance, 10);
    EXPECT_TRUE(drag.cancel(angles, distance));
    EXPECT_EQ(angles.yaw, 1);
    EXPECT_EQ(angles.pitch, 0);
    EXPECT_EQ(distance, 10);
    EXPECT_FALSE(drag.cancel(angles, distance));
}

TEST_F(Drag, RightButtonMovesTheEyeAndStopsAtTheCentre) {
    press(DragButton::Right, 0, 100);
    move(50, 100 + view.f / 10);
    EXPECT_FLOAT_EQ(distance, 20);
    move(50, -1000);
    EXPECT_EQ(distance, 0);
    EXPECT_TRUE(drag.cancel(angles, distance));
    EXPECT_EQ(distance, 10);
    EXPECT_FALSE(drag.cancel(angles, distance));
    press(DragButton::Other, 0, 0);
    EXPECT_FALSE(drag.active());
}

TEST_F(Drag, ViewWithoutASizeTurnsNothing) {
    view = ViewGeometry(0, 0);
    press(DragButton::Left, 0, 0);
    move(3, 4);
    EXPECT_EQ(angles, (CameraAngles{0, 1, 0.25F}));
}

TEST(Wheel, ZoomsByAFactorANotchAndComesBack) {
    EXPECT_LT(wheelDistance(10, 1), 10);
    EXPECT_FLOAT_EQ(wheelDistance(wheelDistance(10, 1), -1), 10);
    EXPECT_GT(wheelDistance(0, -1), 0);
    EXPECT_TRUE(std::isfinite(wheelDistance(4000, -1000)));
}

TEST(StartCamera, ShowsTheWholeModelAnyWayRound) {
    test::Scene scene({test::plain(1, 1, 1)});
    for (const auto& [half, offset] : {std::pair{3.0F, 100.0F},
                                       {0.001F, 0.0F},
                                       {500.0F, 3.0F},
                                       {1800.0F, 0.0F},
                                       {5000.0F, 900.0F},
                                       {1e12F, 0.0F},
                                       {1e-20F, 0.0F}}) {
        scene.clearMesh();
        test::addSquare(scene.mesh(), half, 0);
        scene.document.Root.Matrix[12] = offset;
        scene.document.Root.RenderBackwards = true;
        for (const auto& [width, height] : {std::pair{300, 100}, {100, 300}}) {
            scene.view.resize(width, height);
            startCamera(scene.document, scene.state, scene.view.geometry());
            EXPECT_EQ(scene.document.CameraCenter, (Vec3{offset, 0, 0}));
            for (const float yaw : {0.0F, 2.0F, 4.0F}) {
                scene.state.angles = {1.0F, yaw, 0};
                scene.redraw();
                const QImage inside =
                    imageOf(scene.view.bitmap()).copy(1, 1, width - 2, height - 2);
                EXPECT_EQ(countOtherThan(inside, scene.state.colors.background), scene.drawn())
                    << half << ' ' << width << ' ' << yaw;
                EXPECT_GT(scene.drawn(), 300U) << half << ' ' << width;
            }
        }
    }
}

TEST(StartCamera, ScalesWhatTheDepthOfTheViewCannotHold) {
    test::Scene scene({test::plain(1, 1, 1)});
    const struct {
        float radius;
        float scale;
        float distance; ///< of the eye where the smaller side of the view is the upright one
    } cases[] = {{0.0F, 1.0F, 0.25F},
                 {0.001F, 500.0F, 1.0F},
                 {0.49F, 1 / 0.98F, 1.0F},
                 {0.51F, 1.0F, 1.02F},
                 {10.0F, 1.0F, 20.0F},
                 {1660.0F, 1.0F, 3320.0F},
                 {1670.0F, 100 / 1670.0F, 200.0F},
                 {5e4F, 0.002F, 200.0F}};
    for (const auto& [radius, scale, distance] : cases) {
        scene.clearMesh();
        test::addSquare(scene.mesh(), radius / std::sqrt(2.0F), 0);
        startCamera(scene.document, scene.state, ViewGeometry(400, 300));
        EXPECT_FLOAT_EQ(scene.state.scaleFactor, scale) << radius;
        EXPECT_NEAR(scene.document.CameraDistance, distance, distance * 1e-4) << radius;
    }
}

TEST(StartCamera, SeesTheBoxOfTheSelectedFrameWhole) {
    test::Scene scene({test::plain(1, 1, 1)});
    scene.mesh().Vertices = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {-1, 0, 0}, {0, -1, 0}, {0, 0, -1}};
    startCamera(scene.document, scene.state, scene.view.geometry());
    EXPECT_NEAR(scene.document.CameraDistance, 2.0F, 1e-3);
    scene.document.Root.SelectState = SelectState::Selected;
    startCamera(scene.document, scene.state, scene.view.geometry());
    EXPECT_NEAR(scene.document.CameraDistance, 2 * std::sqrt(3.0F), 1e-3);
}

TEST(StartCamera, SurvivesAnyModel) {
    test::Scene scene({});
    test::addSquare(scene.mesh(), 5000, 0);
    scene.mesh().Vertices[0].x = std::numeric_limits<float>::quiet_NaN();
    scene.mesh().Vertices[1] = {3e38F, -3e38F, 3e38F};
    startCamera(scene.document, scene.state, ViewGeometry(3, 900));
    EXPECT_LT(scene.document.CameraDistance, 5000);
    scene.redraw();
    scene.clearMesh();
    startCamera(scene.document, scene.state, scene.view.geometry());
    EXPECT_EQ(scene.document.CameraCenter, Vec3());
    EXPECT_EQ(scene.document.CameraDistance, 10);
    EXPECT_EQ(scene.state.scaleFactor, 1);
}

} // namespace
} // namespace korvane
