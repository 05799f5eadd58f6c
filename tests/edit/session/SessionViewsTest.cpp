#include "support/SessionTest.h"

#include <array>
#include <utility>

namespace korvane::test {
namespace {

TEST_F(SessionTest, TogglesAndColorsShowWithTheNextMouseEvent) {
    open();
    EXPECT_EQ(told(session_.takeOverdue()), "");
    session_.setMeshVisible(false);
    EXPECT_EQ(root().ViewFlags, (std::array{true, true, false}));
    session_.setMeshVisible(true);
    session_.setFrameVisible(false);
    const QModelIndex row = session_.tree().index(0, 0, {});
    EXPECT_TRUE(row.data(StructureTreeModel::hiddenRole).toBool());
    EXPECT_EQ(root().ViewFlags, (std::array{false, true, false})) << "its mesh hides too";
    session_.setFrameVisible(true);
    EXPECT_FALSE(row.data(StructureTreeModel::hiddenRole).toBool());
    EXPECT_EQ(root().ViewFlags, (std::array{true, true, false})) << "the mesh stays hidden";
    EXPECT_EQ(told(session_.movePlane(at(ViewPlane::XZ, 1, 1))), "geometry status ");
    EXPECT_EQ(told(session_.movePlane(at(ViewPlane::XZ, 1, 1))), "");
    PlaneColors planes;
    planes.worldAxes = 0xff010203U;
    session_.setColors({.background = 0xff040506U}, planes);
    EXPECT_EQ(session_.view().colors.background, 0xff040506U);
    EXPECT_EQ(session_.planeColors().worldAxes, 0xff010203U);
    EXPECT_NE(session_.view().lastDrawnMode, session_.view().mode) << "OpenGL will be set up again";
    EXPECT_EQ(told(session_.takeOverdue()), "geometry ");
    EXPECT_EQ(told(session_.takeOverdue()), "");
    EXPECT_FALSE(session_.model().Modified);
}

TEST_F(SessionTest, ACancelledOrAbandonedDragIsNoEdit) {
    open();
    const std::string before = bytes();
    session_.setTool(ViewTool::MoveFrame);
    const auto start = [&] {
        session_.pressPlane(at(ViewPlane::XY, 100, 100));
        session_.movePlane(at(ViewPlane::XY, 140, 60));
        EXPECT_NE(bytes(), before);
        EXPECT_TRUE(session_.draggingPlane());
    };
    start();
    EXPECT_EQ(told(session_.wheelPlane(at(ViewPlane::XY, 1, 1), 3)), "status ") << "not now";
    EXPECT_EQ(told(session_.cancelPlaneDrag()), "geometry status ");
    EXPECT_EQ(status().find("frame moved"), std::string::npos);
    EXPECT_EQ(told(session_.cancelPlaneDrag()), "");
    start();
    EXPECT_TRUE(session_.releasePlane(at(ViewPlane::ZY, 140, 60)).geometry);
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(session_.draggingPlane() || session_.canUndo() || session_.model().Modified);
    EXPECT_EQ(told(session_.wheelPlane(at(ViewPlane::ZY, 140, 60), 3)), "planes ");
}

TEST_F(SessionTest, TheMouseTurnsTheCameraOrPutsItBack) {
    open();
    const ViewGeometry geometry(200, 160);
    const auto placed = [&] {
        session_.placeCamera(geometry);
        session_.placePlanes(200, 160);
        return std::pair(session_.model().CameraDistance, session_.model().PlaneScale);
    };
    const auto [distance, scale] = placed();
    EXPECT_NE(distance, ModelDocument().CameraDistance);
    EXPECT_NE(scale, ModelDocument().PlaneScale);
    const CameraAngles start = session_.view().angles;
    EXPECT_EQ(told(session_.moveOrbit({}, geometry)), "");
    for (const bool cancelled : {true, false}) {
        EXPECT_EQ(told(session_.pressOrbit({DragButton::Left, 50, 50})), "");
        EXPECT_EQ(told(session_.moveOrbit({{}, 70, 60}, geometry)), "camera ");
        EXPECT_TRUE(session_.draggingOrbit() && session_.acceptsEdits());
        EXPECT_EQ(told(session_.wheelOrbit(1)), "") << "not now";
        EXPECT_NE(session_.view().angles, start);
        EXPECT_EQ(told(cancelled ? session_.cancelOrbit() : session_.releaseOrbit({}, geometry)),
                  "camera ");
        EXPECT_EQ(session_.view().angles == start, cancelled);
    }
    EXPECT_EQ(told(session_.wheelOrbit(-1)), "camera ");
    session_.model().PlaneScale = 3;
    const float moved = session_.model().CameraDistance;
    EXPECT_GT(moved, distance);
    EXPECT_EQ(placed(), std::pair(moved, 3.0F)) << "only once";
    open();
    EXPECT_EQ(placed(), std::pair(distance, scale)) << "another model";
}

TEST_F(SessionTest, TheStatusBarShowsThePointerThenTheCommandThenTheCounts) {
    open();
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    session_.model().PlaneScale = 20;
    session_.setTool(ViewTool::MoveFrame);
    const auto move = [&](ViewPlane plane, float x, float y) {
        session_.movePlane(at(plane, x, y));
        return status();
    };
    const auto hinted = [&](const char* place) {
        return place + ("   " + toolHint(session_.model().Tool).toStdString());
    };
    EXPECT_EQ(move(ViewPlane::XY, 110, 80), hinted("x -0.50  y 0.00"));
    EXPECT_EQ(move(ViewPlane::XZ, 100, 70), hinted("x 0.00  z 0.50"));
    EXPECT_EQ(move(ViewPlane::ZY, 110, 90), hinted("z 0.50  y -0.50"));
    session_.pressPlane(at(ViewPlane::ZY, 100, 80));
    EXPECT_EQ(move(ViewPlane::ZY, 110, 80), "z 0.50  y 0.00   frame moved z 0.50  y 0.00");
    EXPECT_EQ(move(ViewPlane::XY, 110, 80), hinted("x -0.50  y 0.00"))
        << "the drag is in another view";
    session_.cancelPlaneDrag();
    session_.setTool(ViewTool::RotateFrame);
    session_.pressPlane(at(ViewPlane::XY, 150, 80));
    EXPECT_EQ(move(ViewPlane::XY, 100, 30), "x 0.00  y 2.50   frame turned 90.0\u00b0");
    EXPECT_EQ(told(session_.releasePlane(at(ViewPlane::XY, 100, 30))), "status ");
    EXPECT_EQ(status(), hinted("x 0.00  y 2.50"));
    session_.leavePlane();
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    EXPECT_TRUE(session_.undo().status);
    EXPECT_EQ(status(), "Undone: move or rotate frame");
    EXPECT_TRUE(session_.movePlane(at(ViewPlane::XY, 100, 80)).status);
    EXPECT_EQ(status(), hinted("x 0.00  y 0.00"));
    session_.leavePlane();
    EXPECT_EQ(status(), "Undone: move or rotate frame");
    EXPECT_TRUE(session_.redo().status);
    EXPECT_EQ(status(), "Redone: move or rotate frame");
    EXPECT_TRUE(session_.clearMessage().status);
    EXPECT_EQ(status(), "1 mesh, 2 faces");
}

} // namespace
} // namespace korvane::test
