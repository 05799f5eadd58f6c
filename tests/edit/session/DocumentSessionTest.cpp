#include "edit/session/DocumentSession.h"

#include "support/SmallModel.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"
#include "support/Words.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace korvane::test {
namespace {

/// The changes in words.
std::string told(const Changes& changes) {
    const std::pair<bool, const char*> names[] = {
        {changes.tree, "tree "},           {changes.geometry, "geometry "},
        {changes.materials, "materials "}, {changes.camera, "camera "},
        {changes.planes, "planes "},       {changes.selection, "selection "},
        {changes.title, "title "},         {changes.status, "status "}};
    std::string text;
    for (const auto& [set, name] : names) {
        text += set ? name : "";
    }
    return text;
}

/// A user at work on a model, without windows. Each line of a script is a command with arguments.
class Session : public TestFiles {
  protected:
    [[nodiscard]] std::string bytes() const { return writeText(session_.model()); }
    [[nodiscard]] const FrameRecord& root() const { return session_.model().Root; }
    [[nodiscard]] std::string status() const { return session_.statusText().toStdString(); }

    /// The text of the selected node.
    [[nodiscard]] std::string selected() {
        StructureTreeModel& tree = session_.tree();
        const std::int32_t node = tree.tree().nearestNode(session_.model().Selected);
        return tree.indexOf(node).data().toString().toStdString();
    }

    /// Selects a node by the texts on the path to it, separated by "/"; "_" stands for a blank.
    Changes select(const std::string& path) {
        StructureTreeModel& tree = session_.tree();
        QModelIndex at;
        for (QString text : QString::fromStdString(path).split(u'/')) {
            text.replace(u'_', u' ');
            const auto found =
                tree.match(tree.index(0, 0, at), Qt::DisplayRole, text, 1, Qt::MatchExactly);
            if (found.isEmpty()) {
                throw std::runtime_error("no node " + path);
            }
            at = found.front();
        }
        return session_.select(tree.tree().nodeData(StructureTreeModel::nodeOf(at)));
    }

    Changes rename(const std::string& name) {
        return session_.rename(session_.renameQuestion().value(), QString::fromStdString(name));
    }

    /// Clicks flags of the selected frame one by one.
    Changes options(const std::vector<bool FrameFlags::*>& clicked, bool confirmed) {
        const OptionsQuestion question = session_.optionsQuestion().value();
        DialogSubject subject = question.subject;
        FrameFlags flags = question.flags;
        for (bool FrameFlags::*flag : clicked) {
            flags.*flag = !(flags.*flag);
            session_.writeFlags(subject, flags);
        }
        return session_.endOptions(question, subject, confirmed);
    }

    /// A mouse event in a view of 200 x 160 pixels, centred at (100, 80).
    static PlaneInput at(ViewPlane plane, float x, float y, DragButton button = DragButton::Left) {
        return {plane, 200, 160, {button, x, y}};
    }

    Changes drag(ViewTool tool, float x, float y) {
        session_.setTool(tool);
        Changes changes = session_.pressPlane(at(ViewPlane::XY, 100, 100));
        changes |= session_.movePlane(at(ViewPlane::XY, 100 + x, 100 + y));
        EXPECT_FALSE(session_.canUndo() || session_.canCopy());
        EXPECT_EQ(session_.add(), Changes()) << "not while the mouse changes the model";
        changes |= session_.releasePlane(at(ViewPlane::XY, 100 + x, 100 + y));
        session_.leavePlane();
        changes.status = false;
        return changes;
    }

    Changes run(const std::string& line) {
        const std::vector<std::string> said = words(line + " -");
        const auto with = [this](ViewTool tool) {
            return [=, this] { return drag(tool, 9, -13); };
        };
        const std::map<std::string, std::function<Changes()>> commands = {
            {"select", [&] { return select(said[1]); }},
            {"add", [&] { return session_.add(); }},
            {"delete", [&] { return session_.remove(); }},
            {"rename", [&] { return rename(said[1]); }},
            {"options",
             [&] {
                 return options({&FrameFlags::GFlag, &FrameFlags::HasNormals}, true);
             }},
            {"move", with(ViewTool::MoveFrame)},
            {"turn", with(ViewTool::RotateFrame)},
            {"pan", with(ViewTool::MoveView)},
            {"aim", with(ViewTool::MoveObjCoords)},
            {"zoom", with(ViewTool::Zoom)},
            {"undo", [&] { return session_.undo(); }},
            {"redo", [&] { return session_.redo(); }},
            {"copy",
             [&] {
                 clipboard_ = session_.copy();
                 return Changes();
             }},
            {"paste", [&] { return paste(); }}};
        return commands.at(said[0])();
    }

    Changes paste() {
        const PasteOutcome outcome = session_.paste(clipboard_);
        EXPECT_EQ(outcome.refusal.toStdString(), "");
        return outcome.changes;
    }

    void open() {
        const OpenOutcome outcome = session_.open(write("m.xsi", smallModel()));
        ASSERT_EQ(outcome.status, ReadStatus::Done);
    }

    DocumentSession session_;
    QByteArray clipboard_;
};

TEST_F(Session, ScriptsAreUndoneAndRedoneByteByByte) {
    open();
    std::vector<std::string> rungs = {bytes()};
    for (const char* line : {"add",
                             "select Frame_frm-body/Frame_frm-",
                             "rename Fin",
                             "move",
                             "options",
                             "turn",
                             "copy",
                             "select Frame_frm-body/Frame_frm-wing",
                             "paste",
                             "select Frame_frm-body/Mesh_body/MeshMaterialList/Material_2",
                             "copy",
                             "add",
                             "delete",
                             "select Materials",
                             "paste",
                             "add",
                             "select Materials/Material_1",
                             "delete",
                             "select Frame_frm-body/Frame_frm-wing",
                             "delete"}) {
        const std::int32_t steps = session_.history().position();
        const Changes changes = run(line);
        if (session_.history().position() != steps) {
            rungs.push_back(bytes());
            EXPECT_EQ(session_.history().position(), steps + 1) << line;
            EXPECT_TRUE(session_.needsCloseQuestion());
            EXPECT_NE(changes, Changes()) << line;
        }
    }
    ASSERT_EQ(rungs.size(), 13U) << "every command is one step";
    for (int time = 0; time < 2; ++time) {
        for (std::size_t i = rungs.size() - 1; i > 0; --i) {
            EXPECT_NE(session_.undo(), Changes());
            EXPECT_EQ(bytes(), rungs[i - 1]) << i;
        }
        EXPECT_FALSE(session_.canUndo());
        for (std::size_t i = 1; i < rungs.size(); ++i) {
            EXPECT_NE(session_.redo(), Changes());
            EXPECT_EQ(bytes(), rungs[i]) << i;
        }
        EXPECT_FALSE(session_.canRedo());
    }
    EXPECT_EQ(session_.save().result, SaveResult::Written);
    EXPECT_EQ(content(path("m.xsi")), rungs.back());
    EXPECT_FALSE(session_.needsCloseQuestion());
}

TEST_F(Session, TheSelectionFollowsWhatHappensToItsNode) {
    open();
    EXPECT_EQ(selected(), "Frame frm-body");
    const std::string slots = "Frame_frm-body/Mesh_body/MeshMaterialList";
    const std::tuple<std::string, const char*, const char*> cases[] = {
        {"Frame_frm-body/Frame_frm-wing/Frame_frm-tip", "delete", "Frame frm-wing"},
        {slots, "add", "MeshMaterialList"},
        {slots + "/Material_2", "delete", "Material 3"}, // the slot that took its place
        {slots + "/Material_3", "delete", "Material 1"}, // the last one left
        {"Materials", "add", "Materials"},
        {"Frame_frm-body/Frame_frm-wing", "add", "Frame frm-wing"},
    };
    for (const auto& [node, command, expected] : cases) {
        select(node);
        EXPECT_TRUE(run(command).tree) << node;
        EXPECT_EQ(selected(), expected) << node;
    }
    EXPECT_EQ(root().SelectState, SelectState::Other);
    select("Materials");
    const Changes undone = session_.undo();
    EXPECT_TRUE(undone.selection && undone.tree);
    EXPECT_EQ(selected(), "Frame frm-wing") << "the frame of the step";
    EXPECT_FALSE(session_.undo().selection) << "a step of the table moves no selection";
}

TEST_F(Session, EveryOperationReturnsWhatItPutsOutOfDate) {
    open();
    const std::pair<const char*, const char*> rows[] = {
        {"select Frame_frm-body/Frame_frm-wing", "geometry "},
        {"move", "geometry "},
        {"undo", "geometry materials status "},
        {"redo", "geometry materials status "},
        {"turn", "geometry "},
        {"pan", "planes "},
        {"zoom", "planes "},
        {"aim", "geometry "},
        {"rename Fin", "tree "},
        {"undo", "tree status "},
        {"add", "tree geometry "},
        {"undo", "tree geometry materials status "},
        {"options", "tree geometry "},
        {"select Frame_frm-body", "geometry "},
        {"undo", "tree geometry materials selection status "},
        {"copy", ""},
        {"paste", "tree geometry "},
        {"select Frame_frm-body/Mesh_body/MeshMaterialList", "geometry "},
        {"select Frame_frm-body/Mesh_body/MeshMaterialList/Material_2", ""},
        {"add", "tree geometry "},
        {"undo", "tree materials selection status "},
        {"select Materials", ""},
        {"add", "tree geometry "},
        {"undo", "tree materials status "},
        {"undo", "tree geometry materials selection status "}};
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(told(run(line)), expected) << line;
    }
    EXPECT_EQ(told(session_.setRenderMode(RenderMode::Wireframe)), "geometry ");
    EXPECT_EQ(told(session_.setViewSetting(&ViewState::dots, true)), "geometry ");
    EXPECT_EQ(told(session_.setName(QStringLiteral("other"))), "title ");
    EXPECT_TRUE(session_.view().dots && session_.view().mode == RenderMode::Wireframe);
}

TEST_F(Session, TogglesAndColorsShowWithTheNextMouseEvent) {
    open();
    EXPECT_EQ(told(session_.takeOverdue()), "");
    session_.setMeshVisible(false);
    EXPECT_EQ(root().ViewFlags, (std::array{true, true, false}));
    session_.setMeshVisible(true);
    session_.setFrameVisible(false);
    EXPECT_EQ(root().ViewFlags, (std::array{false, true, false})) << "its mesh hides too";
    session_.setFrameVisible(true);
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

TEST_F(Session, ACancelledOrAbandonedDragIsNoEdit) {
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
    EXPECT_EQ(told(session_.cancelPlaneDrag()), "geometry ");
    EXPECT_EQ(told(session_.cancelPlaneDrag()), "");
    start();
    EXPECT_TRUE(session_.releasePlane(at(ViewPlane::ZY, 140, 60)).geometry);
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(session_.draggingPlane() || session_.canUndo() || session_.model().Modified);
    EXPECT_EQ(told(session_.wheelPlane(at(ViewPlane::ZY, 140, 60), 3)), "planes ");
}

TEST_F(Session, TheMouseTurnsTheCameraOrPutsItBack) {
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

TEST_F(Session, TheStatusBarShowsThePointerThenTheCommandThenTheCounts) {
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
    EXPECT_TRUE(session_.clearMessage().status);
    EXPECT_EQ(status(), "1 mesh, 2 faces");
}

TEST_F(Session, FrameOptionsWriteAtOnceAndCancelKeepsWhatWasClicked) {
    open();
    const bool before = root().Mesh.HasNormals;
    const Changes left = options({&FrameFlags::HasNormals}, false);
    EXPECT_NE(root().Mesh.HasNormals, before);
    EXPECT_TRUE(left.tree && left.geometry) << "the views must show it";
    EXPECT_FALSE(session_.canUndo());
    options({&FrameFlags::HasNormals}, true);
    session_.undo();
    EXPECT_NE(root().Mesh.HasNormals, before);
    EXPECT_EQ(options({}, true), Changes());
    EXPECT_EQ(options({&FrameFlags::GFlag, &FrameFlags::GFlag}, true), Changes());
}

TEST_F(Session, MaterialsAreEditedFromTheirNodes) {
    open();
    const std::string slots = "Frame_frm-body/Mesh_body/MeshMaterialList";
    const std::tuple<std::string, bool, int> nodes[] = {{slots + "/Material_2", true, 1},
                                                        {"Materials", false, 0},
                                                        {"Materials/Material_2", false, 1},
                                                        {slots, true, 0}};
    for (const auto& [node, ofMesh, slot] : nodes) {
        EXPECT_TRUE(select(node) == Changes() || ofMesh) << node;
        const MaterialEditing* materials = session_.editMaterials();
        ASSERT_NE(materials, nullptr) << node;
        EXPECT_EQ(materials->ofMesh(), ofMesh) << node;
        EXPECT_EQ(materials->currentSlot(), slot) << node;
        EXPECT_FALSE(session_.acceptsEdits());
        EXPECT_EQ(session_.add(), Changes()) << "nothing else is edited";
        EXPECT_EQ(told(session_.endMaterials()), "geometry ") << node;
        EXPECT_TRUE(session_.acceptsEdits());
    }
    EXPECT_EQ(told(session_.editMaterials()->useMaterials({true, false})), "materials ");
    EXPECT_EQ(told(session_.endMaterials()), "tree geometry ");
    EXPECT_EQ(told(session_.undo()), "tree materials selection status ");
    EXPECT_EQ(told(select("Frame_frm-body/Mesh_body")), "");
    EXPECT_EQ(session_.editMaterials(), nullptr);
    EXPECT_EQ(told(session_.endMaterials()), "");
}

TEST_F(Session, UnchangedNamesKeepTheirBytes) {
    open();
    session_.model().Root.Name = "\xC9"; // not UTF-8: one character a byte
    EXPECT_TRUE(rename("\u00c9").tree);
    EXPECT_EQ(root().Name, "\xC9");
    EXPECT_TRUE(rename("\u00e9").tree);
    EXPECT_NE(root().Name, "\xC9");
}

TEST_F(Session, LateAnswersOfDialogsAreDropped) {
    open();
    const RenameQuestion name = session_.renameQuestion().value();
    const OptionsQuestion flags = session_.optionsQuestion().value();
    DialogSubject subject = flags.subject;
    session_.add();
    const std::string changed = bytes();
    EXPECT_EQ(session_.rename(name, QStringLiteral("late")), Changes());
    FrameFlags late = flags.flags;
    late.GFlag = !late.GFlag;
    session_.writeFlags(subject, late);
    EXPECT_EQ(session_.endOptions(flags, subject, true), Changes());
    EXPECT_EQ(bytes(), changed);
    EXPECT_EQ(session_.history().position(), 0);
}

TEST_F(Session, SavingNeedsANameAndCountsEvenIfItFails) {
    EXPECT_TRUE(session_.needsName() && session_.needsCloseQuestion());
    for (const auto& [name, result] : {std::pair{"gone/m.xsi", SaveResult::Failed},
                                       {"m.x", SaveResult::NotWritten},
                                       {"m.xsi", SaveResult::Written}}) {
        session_.model().Modified = true;
        const SaveOutcome outcome = session_.saveAs(path(name));
        EXPECT_EQ(outcome.result, result) << name;
        EXPECT_TRUE(outcome.changes.title && outcome.changes.status) << name;
        EXPECT_FALSE(session_.needsName() || session_.needsCloseQuestion()) << name;
        EXPECT_EQ(content(path(name)) == bytes(), result == SaveResult::Written);
    }
}

TEST_F(Session, RefusedPastesSayWhy) {
    open();
    EXPECT_EQ(session_.paste("damaged").refusal.toStdString(),
              "The clipboard contains nothing that can be pasted.");
    run("copy");
    select("Materials");
    EXPECT_FALSE(session_.canPaste(ClipboardContent::Frame));
    EXPECT_NE(session_.paste(clipboard_).refusal, QString());
    EXPECT_FALSE(session_.canUndo());
}

TEST_F(Session, ACancelledOrFailedReadLeavesNoHalfModel) {
    open();
    const std::string before = bytes();
    const QString name = write("other.xsi", "xsi 0101txt 0032\nframe frm-other {\n}\n");
    EXPECT_EQ(session_.open(name, [](std::size_t, std::size_t) { return false; }).status,
              ReadStatus::Cancelled);
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(session_.open(write("bad.xsi", "no model")).status, ReadStatus::NotValid);
    EXPECT_TRUE(session_.needsName());
    EXPECT_EQ(session_.model().FileName, QStringLiteral("Untitled"));
    EXPECT_EQ(root().Name, "");
}

} // namespace
} // namespace korvane::test
