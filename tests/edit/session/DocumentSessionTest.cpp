#include "edit/session/DocumentSession.h"

#include "render/planes/PlaneViews.h"
#include "support/SmallModel.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"
#include "support/Words.h"

#include <stdexcept>

namespace korvane::test {
namespace {

/// A user at work on a model, without windows: each line of a script is a command and its words.
class Session : public TestFiles {
  protected:
    Session() {
        for (const ViewPlane plane : viewPlanes) {
            planes_.view(plane).resize(200, 200);
        }
    }

    [[nodiscard]] std::string bytes() const { return writeText(session_.model()); }
    [[nodiscard]] const FrameRecord& root() const { return session_.model().Root; }
    [[nodiscard]] std::string status() const { return session_.statusText().toStdString(); }

    /// What the selected node of the tree shows.
    [[nodiscard]] std::string selected() {
        StructureTreeModel& tree = session_.tree();
        const std::int32_t node = tree.tree().nearestNode(session_.model().Selected);
        return tree.indexOf(node).data().toString().toStdString();
    }

    /// Selects the node that texts with "/" between them lead to; "_" stands for a blank.
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

    /// Clicks the flags of the selected frame one after the other.
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

    Changes drag(ViewTool tool, float x, float y) {
        ModelDocument& model = session_.model();
        model.Tool = tool;
        planes_.mouseDown(ViewPlane::XY, {DragButton::Left, 100, 120}, model);
        planes_.mouseMove(ViewPlane::XY, {{}, 100 + x, 120 + y}, model);
        EXPECT_FALSE(session_.canUndo() || session_.canCopy());
        EXPECT_EQ(session_.add(), Changes()) << "not while the mouse changes the model";
        const auto move = planes_.mouseUp(ViewPlane::XY, {{}, 100 + x, 120 + y}, model);
        return move ? session_.recordMove(*move) : Changes();
    }

    Changes run(const std::string& line) {
        const std::vector<std::string> said = words(line);
        const std::string& command = said.at(0);
        if (command == "select") {
            return select(said.at(1));
        }
        if (command == "add") {
            return session_.add();
        }
        if (command == "delete") {
            return session_.remove();
        }
        if (command == "rename") {
            return rename(said.at(1));
        }
        if (command == "options") {
            return options({&FrameFlags::GFlag, &FrameFlags::HasNormals}, true);
        }
        if (command == "move" || command == "turn") {
            return drag(command == "move" ? ViewTool::MoveFrame : ViewTool::RotateFrame, 9, -13);
        }
        if (command == "copy") {
            clipboard_ = session_.copy();
            return {};
        }
        if (command == "paste") {
            const PasteOutcome outcome = session_.paste(clipboard_);
            EXPECT_EQ(outcome.refusal.toStdString(), "");
            return outcome.changes;
        }
        throw std::runtime_error("no command " + command);
    }

    void open() {
        const OpenOutcome outcome = session_.open(write("m.xsi", smallModel()));
        ASSERT_EQ(outcome.status, ReadStatus::Done);
    }

    DocumentSession session_;
    PlaneViews planes_;
    QByteArray clipboard_;
};

TEST_F(Session, StoriesAreTakenBackAndMadeAgainByteByByte) {
    open();
    std::vector<std::string> rungs = {bytes()};
    for (const char* line : {"select Frame_frm-body",
                             "add",
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
            EXPECT_TRUE(changes.tree || changes.geometry || session_.model().RedrawAll) << line;
        }
    }
    ASSERT_EQ(rungs.size(), 13U) << "every command is one step";
    for (int time = 0; time < 2; ++time) {
        for (std::size_t i = rungs.size() - 1; i > 0; --i) {
            EXPECT_TRUE(session_.undo().geometry);
            EXPECT_EQ(bytes(), rungs[i - 1]) << i;
        }
        EXPECT_FALSE(session_.canUndo());
        for (std::size_t i = 1; i < rungs.size(); ++i) {
            EXPECT_TRUE(session_.redo().geometry);
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
    struct Case {
        std::string at;
        const char* command;
        const char* selected;
    };
    const Case cases[] = {
        {"Frame_frm-body/Frame_frm-wing/Frame_frm-tip", "delete", "Frame frm-wing"},
        {slots, "add", "MeshMaterialList"},
        {slots + "/Material_2", "delete", "Material 3"}, // the slot that has taken its place
        {slots + "/Material_3", "delete", "Material 1"}, // the last one there is
        {"Materials", "add", "Materials"},
        {"Frame_frm-body/Frame_frm-wing", "add", "Frame frm-wing"},
    };
    for (const Case& row : cases) {
        select(row.at);
        EXPECT_TRUE(run(row.command).tree) << row.at;
        EXPECT_EQ(selected(), row.selected) << row.at;
    }
    select("Materials");
    const Changes undone = session_.undo();
    EXPECT_TRUE(undone.selection && undone.tree && undone.geometry);
    EXPECT_EQ(selected(), "Frame frm-wing") << "the frame of the step";
    EXPECT_FALSE(session_.undo().selection) << "a step of the table moves none";
}

TEST_F(Session, FrameOptionsWriteAtOnceAndCancelKeepsWhatWasClicked) {
    open();
    const bool before = root().Mesh.HasNormals;
    const Changes left = options({&FrameFlags::HasNormals}, false);
    EXPECT_NE(root().Mesh.HasNormals, before);
    EXPECT_TRUE(left.tree && left.geometry) << "it has to show";
    EXPECT_FALSE(session_.canUndo());
    options({&FrameFlags::HasNormals}, true);
    session_.undo();
    EXPECT_NE(root().Mesh.HasNormals, before);
    EXPECT_EQ(options({}, true), Changes());
    EXPECT_EQ(options({&FrameFlags::GFlag, &FrameFlags::GFlag}, true), Changes());
}

TEST_F(Session, WhatADialogBringsBackTooLateIsDropped) {
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

TEST_F(Session, SavingAsksForANameAndCountsWhateverBecameOfIt) {
    EXPECT_TRUE(session_.needsName() && session_.needsCloseQuestion());
    struct Case {
        const char* name;
        SaveResult result;
    };
    const Case cases[] = {{"gone/m.xsi", SaveResult::Failed},
                          {"m.x", SaveResult::NotWritten},
                          {"m.xsi", SaveResult::Written}};
    for (const Case& row : cases) {
        session_.model().Modified = true;
        const SaveOutcome outcome = session_.saveAs(path(row.name));
        EXPECT_EQ(outcome.result, row.result) << row.name;
        EXPECT_TRUE(outcome.changes.title && outcome.changes.status) << row.name;
        EXPECT_FALSE(session_.needsName() || session_.needsCloseQuestion()) << row.name;
        EXPECT_EQ(content(path(row.name)) == bytes(), row.result == SaveResult::Written);
    }
}

TEST_F(Session, PastesThatFitNothingSayWhy) {
    open();
    EXPECT_EQ(session_.paste("damaged").refusal.toStdString(),
              "The clipboard gives nothing that can be pasted.");
    run("copy");
    select("Materials");
    EXPECT_FALSE(session_.canPaste(ClipboardContent::Frame));
    EXPECT_NE(session_.paste(clipboard_).refusal, QString());
    EXPECT_FALSE(session_.canUndo());
}

TEST_F(Session, TheStatusBarTellsPointerThenCommandThenCounts) {
    open();
    EXPECT_EQ(status(), "1 mesh, 2 faces");
    session_.add();
    EXPECT_TRUE(session_.undo().status);
    EXPECT_EQ(status(), "Undone: add frame");
    EXPECT_TRUE(session_.setPointerText(QStringLiteral("x 1")).status);
    EXPECT_FALSE(session_.setPointerText(QStringLiteral("x 1")).status);
    EXPECT_EQ(status(), "x 1");
    session_.setPointerText({});
    EXPECT_TRUE(session_.clearMessage().status);
    EXPECT_EQ(status(), "1 mesh, 2 faces");
}

TEST_F(Session, AReadingThatIsCancelledOrFailsLeavesNoHalfModel) {
    open();
    const std::string before = bytes();
    const QString name = write("other.xsi", "xsi 0101txt 0032\nframe frm-other {\n}\n");
    EXPECT_EQ(session_.open(name, [](std::size_t, std::size_t) { return false; }).status,
              ReadStatus::Cancelled);
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(session_.open(write("bad.xsi", "no model")).status, ReadStatus::NotValid);
    EXPECT_TRUE(session_.needsName());
    EXPECT_EQ(root().Name, "");
}

} // namespace
} // namespace korvane::test
