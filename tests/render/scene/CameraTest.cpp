#include "render/scene/Camera.h"

#include "render/drags/OrbitDrag.h"
#include "support/Scene.h"

#include <cmath>
#include <limits>

namespace korvane::test {
namespace {

TEST(ViewGeometry, FollowsFromTheSize) {
    const ViewGeometry view(1025, 768);
    EXPECT_EQ(view.cx, 512);
    EXPECT_EQ(view.cy, 384);
    EXPECT_NEAR(view.f, 512 / std::tan(M_PI / 6) * 768 / 1025, 1e-3);
    EXPECT_EQ(view.planes[0].d, 0.25F);
    // just inside the corner of the picture, and just outside
    const Vec3 corner = {512 / view.f, 384 / view.f, 1};
    EXPECT_LT(view.planes[2].distance(corner), 0);
    EXPECT_GT(view.planes[2].distance({corner.x * 0.999F, 0, 1}), 0);
    EXPECT_GT(view.planes[4].distance({0, corner.y * 0.999F, 1}), 0);
}

TEST(ViewGeometry, ViewWithoutASizeHasOnePixelAndItsCentreAtZero) {
    const ViewGeometry view(-3, 0);
    EXPECT_EQ(std::tuple(view.width, view.height, view.cx, view.cy), std::tuple(1, 1, 0, 0));
    EXPECT_EQ(view.f, 1.0F);
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
    void expect(const CameraAngles& turned, float away) const {
        EXPECT_FLOAT_EQ(angles.pitch, turned.pitch);
        EXPECT_FLOAT_EQ(angles.yaw, turned.yaw);
        EXPECT_EQ(angles.roll, 0.25F);
        EXPECT_FLOAT_EQ(distance, away);
    }

    ViewGeometry view{400, 300};
    OrbitDrag drag;
    const CameraAngles start{0, 1, 0.25F};
    CameraAngles angles = start;
    float distance = 10;
};

TEST_F(Drag, HalfTheViewTurnsByPiAndPitchStops) {
    press(DragButton::Left, 100, 100);
    move(-100, 175);
    expect({viewPi / 2, 1 + viewPi}, 10);
    move(-5000, 5000);
    expect({viewPi / 2, 1 + 25.5F * viewPi}, 10);
    move(100, -5000);
    expect({-viewPi / 2, 1}, 10);
    EXPECT_TRUE(drag.end({DragButton::Left, 100, 100}, view, angles, distance));
    move(0, 0);
    expect(start, 10); // the drag is over
}

TEST_F(Drag, RightButtonStopsAtTheCentreAndCancelGoesBackToBeforeTheFirstOfTwoButtons) {
    press(DragButton::Right, 0, 100);
    move(50, 100 + view.f / 10);
    expect(start, 20);
    move(50, -1000);
    expect(start, 0);
    press(DragButton::Left, 150, 120);
    move(170, 160);
    EXPECT_NE(angles.yaw, 1);
    EXPECT_NE(distance, 0);
    EXPECT_TRUE(drag.cancel(angles, distance));
    expect(start, 10);
    EXPECT_FALSE(drag.cancel(angles, distance));
    press(DragButton::Other, 0, 0);
    EXPECT_FALSE(drag.active());
}

TEST_F(Drag, ViewWithoutASizeTurnsNothing) {
    view = ViewGeometry(0, 0);
    press(DragButton::Left, 0, 0);
    move(3, 4);
    EXPECT_EQ(angles, start);
}

TEST(Wheel, ZoomsByAFactorANotchAndComesBack) {
    EXPECT_LT(wheelDistance(10, 1), 10);
    EXPECT_FLOAT_EQ(wheelDistance(wheelDistance(10, 1), -1), 10);
    EXPECT_GT(wheelDistance(0, -1), 0);
    EXPECT_TRUE(std::isfinite(wheelDistance(4000, -1000)));
    // a drag can go farther: no notch leaps back
    const float beyond = 2 * ViewGeometry::farZ;
    EXPECT_FLOAT_EQ(wheelDistance(beyond, 1), beyond / wheelFactor(1));
    EXPECT_EQ(wheelDistance(beyond, -1), beyond);
}

TEST(Culling, AMeshIsInsideOnlyWithAllItsVertices) {
    Scene scene({});
    addSquare(scene.mesh(), 1, 0);
    const ViewGeometry geometry(200, 200);
    const Camera camera(scene.state.angles, 10, {});
    const auto where = [&] {
        refreshedCache(scene.document.Root, {});
        return containment({geometry, scene.state, camera}, {&scene.document.Root, {}});
    };
    EXPECT_EQ(where(), Containment::Inside);
    scene.mesh().Vertices[0].x = std::numeric_limits<float>::quiet_NaN();
    scene.mesh().ListRevision.shapeChanged();
    EXPECT_EQ(where(), Containment::Crossing) << "the bounds leave it out";
}

void place(Scene& scene, std::int32_t width = 200, std::int32_t height = 200) {
    scene.draw = bySoftware(width, height);
    startCamera(scene.document, scene.state, ViewGeometry(width, height));
}

TEST(StartCamera, ShowsTheWholeModelFromAnyAngleAndScalesWhatTheDepthCannotHold) {
    Scene scene({plain(1, 1, 1)});
    scene.document.Root.RenderBackwards = true;
    const struct {
        float radius;
        float offset;
        float scale;
        float distance; ///< of the eye in the view whose height is the shorter side
    } rows[] = {{1e-20F, 0, 5e19F, 1},         {0.001F, 0, 500, 1},      {0.49F, 0, 1 / 0.98F, 1},
                {0.51F, 0, 1, 1.02F},          {10, 100, 1, 20},         {1660, 3, 1, 3320},
                {1670, 0, 100 / 1670.0F, 200}, {5e4F, 900, 0.002F, 200}, {1e12F, 0, 1e-10F, 200}};
    for (const auto& row : rows) {
        scene.clearMesh();
        addSquare(scene.mesh(), row.radius / std::sqrt(2.0F), 0);
        scene.document.Root.Matrix[12] = row.offset;
        for (const auto& [width, height] : {std::pair{100, 300}, {300, 100}}) {
            place(scene, width, height);
            EXPECT_EQ(scene.document.CameraCenter, (Vec3{row.offset, 0, 0}));
            for (const float yaw : {0.0F, 2.0F, 4.0F}) {
                scene.state.angles = {1.0F, yaw, 0};
                scene.redraw();
                const int drawn = scene.drawn();
                EXPECT_GT(drawn, 300) << row.radius << ' ' << width;
                scene.picture = scene.picture.copy(1, 1, width - 2, height - 2);
                EXPECT_EQ(scene.drawn(), drawn) << row.radius << ' ' << width << ' ' << yaw;
            }
        }
        EXPECT_FLOAT_EQ(scene.state.scaleFactor, row.scale) << row.radius;
        EXPECT_NEAR(scene.document.CameraDistance, row.distance, row.distance * 1e-4) << row.radius;
    }
}

TEST(StartCamera, SurvivesAnyModel) {
    Scene scene({});
    addSquare(scene.mesh(), 5000, 0);
    scene.mesh().Vertices[0].x = std::numeric_limits<float>::quiet_NaN();
    scene.mesh().Vertices[1] = {3e38F, -3e38F, 3e38F};
    place(scene, 3, 900);
    EXPECT_LT(scene.document.CameraDistance, 5000);
    scene.redraw();
    scene.clearMesh();
    place(scene);
    EXPECT_EQ(scene.document.CameraCenter, Vec3());
    EXPECT_EQ(scene.document.CameraDistance, 10);
    EXPECT_EQ(scene.state.scaleFactor, 1);
    addSquare(scene.mesh(), 0, 0); // a single point has no size
    place(scene);
    EXPECT_EQ(scene.document.CameraDistance, 0.25F);
    EXPECT_EQ(scene.state.scaleFactor, 1);
}

} // namespace
} // namespace korvane::test
