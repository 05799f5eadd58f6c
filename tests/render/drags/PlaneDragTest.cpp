#include "render/drags/PlaneDrag.h"

#include "render/scene/SelectedFrame.h"
#include "support/EditLadder.h"
#include "support/FrameMaking.h"
#include "support/Scene.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace korvane::test {
namespace {

Matrix4 scaling(float x, float y, float z) {
    return {{x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1}};
}

/// Turned about x, then by the same angle about z.
const Matrix4 turned = {
    {0.8F, 0.6F, 0, 0, -0.48F, 0.64F, 0.6F, 0, 0.36F, -0.48F, 0.8F, 0, 0, 0, 0, 1}};
const Matrix4 turnedAndMoved = MatrixMatrix(turned, translation(1, 2, 3));

const std::pair<const char*, Matrix4> parents[] = {{"none", {}},
                                                   {"moved", translation(3, -4, 5)},
                                                   {"turned", turnedAndMoved},
                                                   {"scaled", scaling(2, 0.5F, 3)},
                                                   {"mirrored", scaling(-1, 1, 1)},
                                                   {"flat", scaling(1, 0, 1)}};

std::array<std::uint32_t, 16> bits(const Matrix4& matrix) {
    return std::bit_cast<std::array<std::uint32_t, 16>>(matrix.m);
}

/// A document whose root has a child with a selected frame in it, and the mouse in its views.
struct Desk {
    explicit Desk(const Matrix4& parent = {}, ViewTool tool = ViewTool::MoveFrame) {
        document.Root.Children.resize(2);
        document.Root.Children[0].Matrix = parent;
        document.Root.Children[0].Children.resize(1);
        frame().Matrix = MatrixMatrix(MatrixMatrix(scaling(1.5F, 1, 0.75F), turned),
                                      translation(0.5F, -0.25F, 2));
        frame().HasMesh = true;
        addSquare(frame().Mesh, 1, 0.5F);
        document.computeDerivedData();
        document.markSelection(FramePath(std::vector<std::int32_t>{1, 1}));
        document.Modified = false;
        document.Tool = tool;
        document.PlaneScale = 1;
    }
    FrameRecord& frame() { return document.Root.Children[0].Children[0]; }
    void press(ViewPlane plane, float x, float y, DragButton button = DragButton::Left) {
        stale |= mouse.begin({button, x, y}, mapping(plane), document);
    }
    void move(ViewPlane plane, float x, float y) {
        stale |= mouse.update({{}, x, y}, mapping(plane), document);
    }
    std::optional<FrameMove> release(ViewPlane plane, float x, float y) {
        const DragEnd end = mouse.end({{}, x, y}, mapping(plane), document);
        stale |= end.stale;
        return end.move;
    }
    std::optional<FrameMove> drag(ViewPlane plane, float fromX, float fromY, float toX, float toY) {
        press(plane, fromX, fromY);
        move(plane, (fromX + toX) / 2, fromY);
        return release(plane, toX, toY);
    }
    void cancel() { stale |= mouse.cancel(document); }
    [[nodiscard]] PlaneMapping mapping(ViewPlane plane) const {
        return planeMapping(plane, 200, 160, document.PlaneScale, document.PanVector);
    }
    /// The frame's origin on the screen.
    std::pair<double, double> origin(ViewPlane plane) {
        const PlanePoint at =
            toPlane(plane, VectorMatrix({}, findSelectedFrame(document.Root).world));
        return {mapping(plane).screenX(at.u), mapping(plane).screenY(at.v)};
    }

    ModelDocument document;
    PlaneDrag mouse;
    StaleViews stale; ///< since the test last cleared it
};

/// The world's directions to the right and upward in a plane.
struct PlaneCase {
    ViewPlane plane;
    Vec3 right;
    Vec3 up;
};

const PlaneCase planes[] = {{ViewPlane::XY, {-1, 0, 0}, {0, 1, 0}},
                            {ViewPlane::XZ, {-1, 0, 0}, {0, 0, 1}},
                            {ViewPlane::ZY, {0, 0, 1}, {0, 1, 0}}};

Vec3 scaledSum(const Vec3& a, float byA, const Vec3& b, float byB) {
    return {a.x * byA + b.x * byB, a.y * byA + b.y * byB, a.z * byA + b.z * byB};
}

TEST(PlaneDrag, ZoomStepsByTwoBetweenItsLimits) {
    const std::tuple<float, DragButton, float> steps[] = {
        {16, DragButton::Left, 32},        {16, DragButton::Right, 8},
        {4096, DragButton::Left, 4096},    {2500, DragButton::Left, 5000},
        {0.02F, DragButton::Right, 0.02F}, {0.04F, DragButton::Right, 0.02F},
        {8e5F, DragButton::Right, 4e5F},   {8e5F, DragButton::Left, 8e5F},
        {1e-4F, DragButton::Left, 2e-4F},  {1e-4F, DragButton::Right, 1e-4F},
        {16, DragButton::Other, 16}};
    for (const auto& [scale, button, expected] : steps) {
        Desk desk({}, ViewTool::Zoom);
        desk.document.PlaneScale = scale;
        desk.press(ViewPlane::XZ, 5, 6, button);
        EXPECT_EQ(desk.document.PlaneScale, expected);
        EXPECT_EQ(desk.stale.planes, button != DragButton::Other);
        desk.move(ViewPlane::XZ, 50, 60);
        EXPECT_FALSE(desk.release(ViewPlane::XZ, 70, 80));
        EXPECT_EQ(desk.document.PlaneScale, expected);
        EXPECT_EQ(desk.document.PanVector, Vec3());
        EXPECT_FALSE(desk.stale.space);
    }
}

TEST(DragInput, StepsOfTheMouseAreStepsInPixelsAtAnyScaleFactor) {
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 4.0 / 3.0}) {
        for (int corner = 0; corner < 9; ++corner) {
            // as the window system reports window pixels
            const auto pixelAt = [&](int pixel) {
                return devicePixel(pixel / ratio, corner, ratio);
            };
            for (int pixel = -50; pixel < 2000; ++pixel) {
                ASSERT_EQ(pixelAt(pixel + 1) - pixelAt(pixel), 1.0F) << ratio << ' ' << pixel;
            }
            EXPECT_NEAR(pixelAt(1000), 1000 - corner * ratio, 0.5);
        }
    }
}

TEST(PlaneDrag, MovingTranslatesTheFramesOwnMatrix) {
    for (const auto& [name, parent] : parents) {
        for (const PlaneCase& plane : planes) {
            for (const float scale : {0.02F, 1.0F, 2.0F, 4096.0F}) {
                Desk desk(parent);
                desk.document.PlaneScale = scale;
                const Matrix4 before = desk.frame().Matrix;
                const auto move = desk.drag(plane.plane, 100, 80, 110, 50);
                ASSERT_TRUE(move);
                const Vec3 way = scaledSum(plane.right, 10 / scale, plane.up, 30 / scale);
                Matrix4 expected = before;
                expected[12] += way.x;
                expected[13] += way.y;
                expected[14] += way.z;
                EXPECT_EQ(desk.frame().Matrix, expected) << name << ' ' << scale;
                EXPECT_EQ(bits(move->before), bits(before));
                EXPECT_EQ(bits(move->after), bits(desk.frame().Matrix));
                EXPECT_EQ(move->frame, desk.frame().Path);
                EXPECT_EQ(desk.document.Root.Children[0].Matrix, parent);
                EXPECT_TRUE(desk.stale.planes && desk.stale.space);
            }
        }
    }
}

TEST(PlaneDrag, TheCameraCentreGoesAgainstTheMouseAndThePanWithIt) {
    const Vec3 start = {8, 16, 32};
    for (const PlaneCase& plane : planes) {
        const Vec3 way = scaledSum(plane.right, 2.5F, plane.up, 7.5F);
        for (const auto& [tool, centre, pan] :
             {std::tuple(ViewTool::MoveObjCoords, start + -way, start),
              std::tuple(ViewTool::MoveView, start, start + way)}) {
            Desk desk({}, tool);
            desk.document.PlaneScale = 4;
            desk.document.CameraCenter = desk.document.PanVector = start;
            EXPECT_FALSE(desk.drag(plane.plane, 100, 80, 110, 50));
            EXPECT_EQ(desk.document.CameraCenter, centre);
            EXPECT_EQ(desk.document.PanVector, pan);
            EXPECT_TRUE(desk.stale.planes);
            EXPECT_EQ(desk.stale.space, centre != start) << "the 3D view shows no pan";
        }
    }
}

/// The screen position at an angle and a distance from the frame's origin.
std::pair<float, float> around(Desk& desk, ViewPlane plane, double angle, double distance) {
    const auto [x, y] = desk.origin(plane);
    return {static_cast<float>(x + distance * std::cos(angle)),
            static_cast<float>(y - distance * std::sin(angle))};
}

TEST(PlaneDrag, RotatingTurnsTheFrameByThePointersAngleAboutItsOrigin) {
    constexpr float turn = 2.5F;
    const float c = std::cos(turn);
    const float s = std::sin(turn);
    for (const auto& [name, parent] : parents) {
        for (const PlaneCase& plane : planes) {
            for (const float scale : {0.02F, 2.0F, 4096.0F}) {
                Desk desk(parent, ViewTool::RotateFrame);
                desk.document.PlaneScale = scale;
                Matrix4 expected = desk.frame().Matrix;
                for (std::size_t k = 0; k < 12; k += 4) {
                    // each axis shows turned by the angle
                    const Vec3 was = {expected[k], expected[k + 1], expected[k + 2]};
                    const float u = dotproduct(was, plane.right);
                    const float v = dotproduct(was, plane.up);
                    const Vec3 is = was + scaledSum(plane.right, u * (c - 1) - v * s, plane.up,
                                                    u * s + v * (c - 1));
                    expected[k] = is.x;
                    expected[k + 1] = is.y;
                    expected[k + 2] = is.z;
                }
                const auto [fromX, fromY] = around(desk, plane.plane, 0.7, 50);
                const auto [toX, toY] = around(desk, plane.plane, 0.7 + turn, 90);
                desk.press(plane.plane, fromX, fromY);
                desk.move(plane.plane, fromX + 3, fromY - 40); // on the way there
                ASSERT_TRUE(desk.release(plane.plane, toX, toY)) << name;
                for (std::size_t k = 0; k < 16; ++k) {
                    // float positions far from the centre at large scales are less exact
                    const double off = k < 12 && k % 4 < 3 ? 2e-4 : 0;
                    EXPECT_NEAR(desk.frame().Matrix[k], expected[k], off) << name << ' ' << k;
                }
                EXPECT_EQ(desk.document.Root.Children[0].Matrix, parent);
            }
        }
    }
}

TEST(PlaneDrag, APointerOnTheOriginTurnsNothing) {
    for (const ViewPlane plane : viewPlanes) {
        Desk desk({}, ViewTool::RotateFrame);
        desk.frame().Matrix = translation(8, 16, 32);
        const Matrix4 before = desk.frame().Matrix;
        const auto [originX, originY] = desk.origin(plane);
        const auto x = static_cast<float>(originX);
        const auto y = static_cast<float>(originY);
        // pressed there: the first direction away from it counts as the start
        desk.press(plane, x, y);
        desk.move(plane, x, y);
        EXPECT_EQ(bits(desk.frame().Matrix), bits(before));
        desk.move(plane, x + 20, y);
        EXPECT_EQ(bits(desk.frame().Matrix), bits(before));
        desk.move(plane, x, y - 20);
        const Matrix4 quarter = desk.frame().Matrix;
        EXPECT_NE(quarter, before);
        // passing over it keeps the turn
        desk.move(plane, x, y);
        EXPECT_EQ(bits(desk.frame().Matrix), bits(quarter));
        ASSERT_TRUE(desk.release(plane, x, y));
        for (const float element : desk.frame().Matrix.m) {
            EXPECT_TRUE(std::isfinite(element));
        }
    }
}

TEST(PlaneDrag, ClicksAndReturnsRecordNothing) {
    const float nan = std::nanf("");
    for (const ViewTool tool : {ViewTool::MoveFrame, ViewTool::RotateFrame}) {
        for (const float odd : {-0.0F, nan, std::numeric_limits<float>::infinity(), 1e-30F}) {
            Desk desk({}, tool);
            desk.frame().Matrix[12] = odd;
            desk.frame().Matrix[4] = odd;
            const auto before = bits(desk.frame().Matrix);
            desk.press(ViewPlane::XY, 20, 20);
            desk.move(ViewPlane::XY, 33, 90);
            EXPECT_FALSE(desk.release(ViewPlane::XY, 20, 20)) << static_cast<int>(tool);
            EXPECT_EQ(bits(desk.frame().Matrix), before) << static_cast<int>(tool) << odd;
            EXPECT_FALSE(desk.release(ViewPlane::XY, 99, 99)) << "no button is down";
        }
    }
}

TEST(PlaneDrag, DragsKeepNumbersFinite) {
    constexpr float most = std::numeric_limits<float>::max();
    for (const ViewTool tool : {ViewTool::MoveFrame, ViewTool::MoveView, ViewTool::RotateFrame,
                                ViewTool::MoveObjCoords}) {
        for (const ViewPlane plane : viewPlanes) {
            for (const float scale : {0.0F, 1e-45F, 1e-37F, 1.0F, most}) {
                for (const float element : {1.0F, most, -most}) {
                    Desk desk({}, tool);
                    desk.document.PlaneScale = scale;
                    desk.document.CameraCenter = desk.document.PanVector = {element, -element, 3};
                    desk.frame().Matrix.m.fill(element);
                    desk.press(plane, 20, 30);
                    for (const auto& [x, y] : {std::pair(190.0F, 9.0F), {20, 30}, {9, 150}}) {
                        desk.move(plane, x, y);
                        EXPECT_TRUE(isFinite(desk.frame().Matrix)) << scale << ' ' << element;
                        EXPECT_TRUE(isFinite(desk.document.CameraCenter));
                        EXPECT_TRUE(isFinite(desk.document.PanVector));
                    }
                }
            }
        }
    }
}

TEST(PlaneDrag, OnlyTheLeftButtonMovesAndThePressDecidesTheTool) {
    Desk desk;
    const float before = desk.frame().Matrix[12];
    desk.press(ViewPlane::XY, 10, 10, DragButton::Right);
    desk.move(ViewPlane::XY, 50, 50);
    EXPECT_EQ(desk.frame().Matrix[12], before);
    EXPECT_EQ(desk.document.PlaneScale, 1.0F);
    desk.press(ViewPlane::XY, 50, 50);
    desk.document.Tool = ViewTool::MoveView;
    EXPECT_TRUE(desk.release(ViewPlane::XY, 54, 50)); // whichever button it was
    desk.move(ViewPlane::XY, 90, 90);
    EXPECT_EQ(desk.frame().Matrix[12], before - 4);
    EXPECT_EQ(desk.document.PanVector, Vec3());
    EXPECT_FALSE(desk.drag(ViewPlane::XY, 10, 10, 30, 10));
    EXPECT_EQ(desk.document.PanVector, (Vec3{-20, 0, 0}));
}

TEST(PlaneDrag, APressInAnotherPlaneCancelsWhatWasNeverReleased) {
    Desk desk({}, ViewTool::MoveView);
    desk.press(ViewPlane::XY, 10, 10);
    desk.move(ViewPlane::XY, 90, 10);
    desk.document.Tool = ViewTool::RotateFrame;
    desk.press(ViewPlane::XZ, 20, 30);
    EXPECT_EQ(desk.document.PanVector, Vec3());
    EXPECT_FALSE(desk.release(ViewPlane::XZ, 20, 30)) << "a click, in the view without the pan";
}

TEST(PlaneDrag, WithoutASelectionTheLastFrameMoves) {
    Desk desk;
    desk.document.markSelection(FramePath(std::vector<std::int32_t>{9}));
    const auto move = desk.drag(ViewPlane::XY, 0, 0, 7, 0);
    ASSERT_TRUE(move);
    EXPECT_EQ(move->frame, FramePath(std::vector<std::int32_t>{2}));
    EXPECT_EQ(desk.document.Root.Children[1].Matrix, translation(-7, 0, 0));
}

TEST(PlaneDrag, CancellingLeavesNoTrace) {
    for (const ViewTool tool : {ViewTool::MoveFrame, ViewTool::Zoom, ViewTool::MoveView,
                                ViewTool::RotateFrame, ViewTool::MoveObjCoords}) {
        for (const ViewPlane plane : viewPlanes) {
            Desk desk(turnedAndMoved, tool);
            desk.document.CameraCenter = {1, 2, 3};
            desk.document.PanVector = {4, 5, 6};
            const EditSnapshot before(desk.document);
            desk.press(plane, 20, 30, DragButton::Right);
            desk.press(plane, 20, 30);
            desk.move(plane, 90, 70);
            EXPECT_TRUE(desk.mouse.active());
            desk.cancel();
            EXPECT_EQ(EditSnapshot(desk.document), before);
            EXPECT_EQ(bits(desk.frame().Matrix), bits(before.root.Children[0].Children[0].Matrix));
            EXPECT_EQ(desk.document.CameraCenter, (Vec3{1, 2, 3}));
            EXPECT_EQ(desk.document.PanVector, (Vec3{4, 5, 6}));
            EXPECT_EQ(desk.document.PlaneScale, 1.0F);
            EXPECT_FALSE(desk.mouse.active() || desk.document.Modified);
            EXPECT_TRUE(desk.stale.planes);
            desk.move(plane, 10, 10);
            EXPECT_FALSE(desk.release(plane, 10, 10));
            EXPECT_EQ(EditSnapshot(desk.document), before);
        }
    }
}

TEST(PlaneDrag, WheelZoomsAboutThePointer) {
    for (const ViewPlane plane : viewPlanes) {
        Desk desk;
        desk.document.PanVector = {1, 2, 3};
        desk.document.PlaneScale = 20;
        const PlanePoint before = desk.mapping(plane).under(30, 140);
        const auto wheel = [&](float notches) {
            return zoomPlanes({{}, 30, 140}, notches, desk.mapping(plane), desk.document);
        };
        EXPECT_TRUE(wheel(2));
        EXPECT_FLOAT_EQ(desk.document.PlaneScale, 20 * 1.15F * 1.15F);
        const PlanePoint after = desk.mapping(plane).under(30, 140);
        EXPECT_NEAR(after.u, before.u, 1e-5);
        EXPECT_NEAR(after.v, before.v, 1e-5);
        const float scale = desk.document.PlaneScale;
        EXPECT_FALSE(wheel(1000) || wheel(-1000)) << "beyond the limits";
        EXPECT_EQ(desk.document.PlaneScale, scale);
    }
}

} // namespace
} // namespace korvane::test
