// The keyboard in the views, and picking.

#include "edit/session/DocumentSession.h"
#include "render/scene/AxisDirections.h"
#include "render/scene/Camera.h"
#include "render/scene/SelectedFrame.h"
#include "support/EditLadder.h"
#include "support/Scene.h"
#include "support/SmallModel.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <functional>
#include <map>
#include <tuple>
#include <utility>

namespace korvane::test {
namespace {

class SessionKeys : public TestFiles {
  protected:
    SessionKeys() { open(smallModel()); }

    void open(const std::string& text) {
        EXPECT_EQ(session.open(write("m.xsi", text)).status, ReadStatus::Done);
        session.model().PlaneScale = 2;
    }
    /// A place in a view of 200 x 160 pixels.
    static PlaneInput at(ViewPlane plane, float x = 0, float y = 0,
                         DragButton button = DragButton::Left) {
        return {plane, 200, 160, {button, x, y}};
    }
    /// Presses keys, one a letter, in a 2D view or, without `plane`, in the 3D view.
    Changes keys(std::string_view pressed, std::optional<ViewPlane> plane = ViewPlane::XY) {
        const std::map<char, ViewKey> meant = {
            {'l', ViewKey::Left},      {'r', ViewKey::Right},    {'u', ViewKey::Up},
            {'d', ViewKey::Down},      {'+', ViewKey::ZoomIn},   {'-', ViewKey::ZoomOut},
            {'h', ViewKey::ShowModel}, {'f', ViewKey::ShowFrame}};
        Changes changes;
        for (const char key : pressed) {
            changes |= plane ? session.keyPlane(at(*plane), meant.at(key))
                             : session.keyOrbit(ViewGeometry(200, 160), meant.at(key));
        }
        return changes;
    }
    void select(const FramePath& path) {
        NodeData node;
        node.NodeKind = NodeKind::Frame;
        node.Frame = path;
        session.select(node);
    }
    [[nodiscard]] const ModelDocument& model() const { return session.model(); }
    [[nodiscard]] const Matrix4& matrix() const { return model().Root.Matrix; }
    [[nodiscard]] std::size_t steps() const { return session.history().entries().size(); }

    DocumentSession session;
};

TEST_F(SessionKeys, ARunIsOneStepUntilAnythingElseIsDone) {
    const std::tuple<const char*, std::function<void()>, std::size_t> doings[] = {
        {"no key", [] {}, 0},
        {"another view", [&] { keys("u", ViewPlane::XZ); }, 1},
        {"a save", [&] { session.save(); }, 0},
        {"a copy", [&] { EXPECT_FALSE(session.copy().isEmpty()); }, 0},
        {"a command", [&] { session.clearMessage(); }, 0},
        {"the focus", [&] { session.endKeys(); }, 0},
        {"another tool and back",
         [&] {
             session.setTool(ViewTool::Zoom);
             session.setTool(ViewTool::MoveFrame);
         },
         0},
        {"another frame and back",
         [&] {
             select(FramePath(std::vector<std::int32_t>{1}));
             keys("r");
             select(FramePath());
         },
         1},
        {"a run that ends where it began",
         [&] {
             session.endKeys();
             keys("ruld");
             session.endKeys();
         },
         0},
        {"zooming", [&] { keys("+-"); }, 0},
        {"the camera", [&] { keys("l", std::nullopt); }, 0},
        {"the mouse",
         [&] {
             session.pressPlane(at(ViewPlane::XY, 5, 5));
             session.releasePlane(at(ViewPlane::XY, 5, 5));
         },
         0},
        {"a drag",
         [&] {
             session.pressPlane(at(ViewPlane::XY, 5, 5));
             EXPECT_EQ(keys("rrr"), Changes()) << "not while the mouse moves the frame";
             session.releasePlane(at(ViewPlane::XY, 9, 5));
         },
         1},
        {"an edit", [&] { session.add(); }, 1},
        {"undo and redo",
         [&] {
             session.undo();
             session.redo();
         },
         0},
        {"a toggle", [&] { session.setFrameVisible(true); }, 0}};
    session.setTool(ViewTool::MoveFrame);
    std::vector<EditSnapshot> rungs = {EditSnapshot(model())};
    keys("r");
    for (const auto& [what, doing, added] : doings) {
        std::size_t before = steps();
        keys("ru"); // continues the run of the last row
        EXPECT_EQ(steps(), before) << what;
        EXPECT_TRUE(session.canUndo() && session.canSave() && session.needsCloseQuestion());
        EXPECT_TRUE(session.hasUnsavedWork());
        rungs.emplace_back(model());
        before = steps();
        doing();
        EXPECT_EQ(steps(), before + added) << what;
        if (added == 1) {
            rungs.emplace_back(model());
            session.endKeys();
        }
        keys("d");
        EXPECT_EQ(steps(), before + added + (std::string(what) == "no key" ? 0 : 1)) << what;
        if (std::string(what) == "no key") {
            rungs.pop_back();
        }
    }
    rungs.emplace_back(model());
    ASSERT_EQ(rungs.size(), steps() + 1);
    EXPECT_EQ(climb(model(),
                    {[&] { session.undo(); }, [&] { session.redo(); },
                     [&] { return session.canUndo(); }, [&] { return session.canRedo(); }},
                    rungs),
              "");
}

TEST_F(SessionKeys, GoingBackLeavesNothingToUndoOrSave) {
    const std::string circle(360, 'l');
    const std::pair<ViewTool, std::string> ways[] = {{ViewTool::MoveFrame, "rrruuulllddd"},
                                                     {ViewTool::RotateFrame, "rrruul"},
                                                     {ViewTool::RotateFrame, circle}};
    for (const auto& [tool, way] : ways) {
        const std::string bytes = writeText(model());
        session.setTool(tool);
        for (const ViewPlane plane : viewPlanes) {
            keys(way.substr(0, 3), plane);
            EXPECT_NE(writeText(model()), bytes);
            EXPECT_TRUE(session.canUndo() && session.hasUnsavedWork());
            keys(way.substr(3), plane);
            EXPECT_EQ(writeText(model()), bytes);
            EXPECT_FALSE(session.canUndo() || session.canRedo() || session.canSave() ||
                         session.hasUnsavedWork());
        }
    }
}

TEST_F(SessionKeys, ArrowsMoveLikeADragOfAsManyPixelsAndTurnByDegrees) {
    for (const ViewPlane plane : viewPlanes) {
        for (const ViewTool tool : {ViewTool::MoveFrame, ViewTool::MoveObjCoords}) {
            session.setTool(tool);
            const auto states = [&] { return std::pair(matrix(), model().CameraCenter); };
            const auto before = states();
            session.pressPlane(at(plane, 50, 50));
            session.releasePlane(at(plane, 53, 48));
            const auto dragged = states();
            tool == ViewTool::MoveFrame ? void(session.undo())
                                        : void(session.model().CameraCenter = before.second);
            keys("rrruu", plane);
            EXPECT_EQ(states(), dragged);
            EXPECT_NE(dragged, before);
        }
        session.undo();
        session.leavePlane();
        session.setTool(ViewTool::RotateFrame);
        const PlanePoint before = toPlane(plane, VectorMatrix({-1, 2, 3}, matrix()));
        keys("luuuu", plane); // five degrees counterclockwise
        const PlanePoint after = toPlane(plane, VectorMatrix({-1, 2, 3}, matrix()));
        const float turn = std::atan2(after.v, after.u) - std::atan2(before.v, before.u);
        EXPECT_NEAR(turn, 5 * M_PI / 180, 1e-6);
        EXPECT_EQ(session.statusText(), QStringLiteral("Frame turned 5.0\u00b0"));
        session.undo();
    }
}

TEST_F(SessionKeys, KeysMoveWhatTheViewsShow) {
    const float step = viewPi / 36;
    session.setTool(ViewTool::MoveFrame);
    session.model().PlaneScale = 1e-45F; // a pixel is wider than any number
    EXPECT_EQ(keys("ru"), Changes());
    session.model().PlaneScale = 2;
    for (const ViewTool tool : {ViewTool::MoveView, ViewTool::Zoom}) {
        session.setTool(tool);
        const Vec3 pan = model().PanVector;
        session.movePlane(at(ViewPlane::ZY, 100, 80));
        const QString under = session.statusText();
        EXPECT_EQ(keys("rru", ViewPlane::ZY), (Changes{.planes = true, .status = true}));
        EXPECT_EQ(model().PanVector, pan + (Vec3{0, 8, 16})) << "16 pixels a key, like a drag";
        EXPECT_NE(session.statusText(), under) << "the pointer is elsewhere in the model";
    }
    session.leavePlane();
    const Vec3 pan = std::exchange(session.model().PanVector, {1e20F, 1e20F, 1e20F});
    EXPECT_EQ(keys("ru"), Changes()) << "16 pixels are nothing there";
    session.model().PanVector = pan;
    EXPECT_EQ(keys("+"), Changes{.planes = true});
    EXPECT_FLOAT_EQ(model().PlaneScale, 2 * wheelFactor(1));
    keys("-");
    EXPECT_FLOAT_EQ(model().PlaneScale, 2);
    const CameraAngles angles = session.view().angles;
    EXPECT_EQ(keys("rrd", std::nullopt), Changes{.camera = true});
    EXPECT_FLOAT_EQ(session.view().angles.yaw, angles.yaw - 2 * step);
    EXPECT_FLOAT_EQ(session.view().angles.pitch, angles.pitch + step);
    keys(std::string(40, 'u'), std::nullopt);
    EXPECT_EQ(session.view().angles.pitch, -viewPi / 2);
    EXPECT_EQ(keys("u", std::nullopt), Changes()) << "no farther";
    const float distance = model().CameraDistance;
    keys("+", std::nullopt);
    EXPECT_FLOAT_EQ(model().CameraDistance, distance / wheelFactor(1));
    for (const AxisDirection& axis : axisDirections) {
        session.lookAlong(axis.angles);
        const Vec3 seen = Camera(session.view().angles, 1, {}).directionToWorld({0, 0, 1});
        EXPECT_NEAR(dotproduct(seen, axis.direction), 1, 1e-6) << axis.name;
    }
    EXPECT_EQ(steps(), 0U);
}

/// Squares of half sides 1, 2 and 3 one behind the other; "front" is the nearest for a camera that
/// looks along -z.
std::string threeSquares() {
    Scene scene({plain(1, 0, 0)});
    scene.document.Root.HasMesh = false;
    const std::tuple<const char*, float, float> frames[] = {
        {"back", 3.0F, -1.0F}, {"front", 1.0F, 1.0F}, {"middle", 2.0F, 0.0F}};
    for (const auto& [name, half, z] : frames) {
        FrameRecord& frame = scene.document.Root.Children.emplace_back();
        frame.Name = name;
        frame.HasMesh = true;
        addSquare(frame.Mesh, half, z);
    }
    return writeText(scene.document);
}

TEST_F(SessionKeys, HomeShowsTheModelOrTheSelectedFrameWithoutTurning) {
    open(threeSquares());
    session.lookAlong(axisDirections[0].angles);
    keys("h");
    const ModelDocument start = model();
    EXPECT_FLOAT_EQ(start.PlaneScale, 0.9F * 160 / 6);
    keys("h", std::nullopt);
    const float distance = model().CameraDistance;
    select(FramePath(std::vector<std::int32_t>{2}));
    session.model().Root.Children[1].Matrix[12] = 50; // far off
    EXPECT_EQ(keys("f"), Changes{.planes = true});
    EXPECT_EQ(model().PanVector, (Vec3{-50, 0, -1}));
    EXPECT_FLOAT_EQ(model().PlaneScale, 0.9F * 160 / 2);
    EXPECT_EQ(keys("f", std::nullopt), (Changes{.camera = true, .planes = true}));
    EXPECT_EQ(model().CameraCenter, (Vec3{50, 0, 1}));
    EXPECT_LT(model().CameraDistance, distance);
    EXPECT_EQ(session.view().angles, axisDirections[0].angles);
    session.setFrameVisible(false); // nothing to measure: only its place matters
    const float scale = model().PlaneScale;
    keys("f");
    keys("f", std::nullopt);
    EXPECT_EQ(model().PanVector, (Vec3{-50, 0, 0}));
    EXPECT_EQ(std::pair(model().PlaneScale, model().CameraCenter),
              std::pair(scale, Vec3{50, 0, 0}));
    EXPECT_EQ(steps(), 0U);
}

TEST_F(SessionKeys, RepeatedPicksCycleThroughTheFrames) {
    open(threeSquares());
    session.lookAlong(axisDirections[5].angles);
    session.model().CameraDistance = 10;
    const std::tuple<std::optional<ViewPlane>, float, float, const char*> picks[] = {
        {std::nullopt, 100, 80, "front"},   {std::nullopt, 102, 82, "middle"},
        {std::nullopt, 98, 80, "back"},     {std::nullopt, 100, 80, "front"},
        {std::nullopt, 104, 80, "front"},   {std::nullopt, 104, 80, "middle"},
        {ViewPlane::XY, 104, 80, "middle"}, {ViewPlane::XY, 105, 80, "back"},
        {ViewPlane::XY, 104, 80, "front"},  {ViewPlane::XY, 104, 80, "middle"},
        {ViewPlane::XY, 150, 80, "middle"}, {ViewPlane::XZ, 104, 80, "middle"},
        {std::nullopt, 0, 0, "middle"},     {std::nullopt, 104, 80, "front"}};
    for (const auto& [plane, x, y, expected] : picks) {
        const auto before = model().Selected.Frame;
        const Changes changes =
            plane ? session.pickPlane(at(*plane, x, y))
                  : session.pickSpace({DragButton::Left, x, y}, ViewGeometry(200, 160));
        EXPECT_EQ(model().selectedFrame()->Name, expected) << x << ' ' << y;
        EXPECT_EQ(changes.selection, x != 150.0F && x != 0.0F);
        EXPECT_EQ(changes.geometry, model().Selected.Frame != before) << "the marks of frames";
        EXPECT_EQ(findSelectedFrame(session.model().Root).frame, model().selectedFrame());
    }
    session.model().Root.Children[0].ViewFlags[0] = false; // "back", the third one
    session.pickSpace({DragButton::Left, 104, 80}, ViewGeometry(200, 160));
    EXPECT_EQ(model().selectedFrame()->Name, "front") << "other frames are another cycle";
    session.setTool(ViewTool::MoveFrame);
    session.pressPlane(at(ViewPlane::XY, 5, 5));
    EXPECT_EQ(session.pickPlane(at(ViewPlane::XY, 104, 80)), Changes()) << "not during a drag";
}

} // namespace
} // namespace korvane::test
