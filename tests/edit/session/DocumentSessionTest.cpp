#include "support/SessionTest.h"

#include <tuple>
#include <utility>

namespace korvane::test {
namespace {

TEST_F(SessionTest, ScriptsAreUndoneAndRedoneByteByByte) {
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

TEST_F(SessionTest, TheSelectionFollowsWhatHappensToItsNode) {
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

TEST_F(SessionTest, EveryOperationReturnsWhatItPutsOutOfDate) {
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
        {"undo", "tree geometry materials selection status "},
        {"rename Hull", "tree "},
        {"select Frame_frm-body", "geometry "},
        {"undo", "tree geometry selection status "}};
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(told(run(line)), expected) << line;
    }
    EXPECT_EQ(told(session_.setRenderMode(RenderMode::Wireframe)), "geometry ");
    EXPECT_EQ(told(session_.setViewSetting(&ViewState::dots, true)), "geometry ");
    EXPECT_EQ(told(session_.setName(QStringLiteral("other"))), "title ");
    EXPECT_TRUE(session_.view().dots && session_.view().mode == RenderMode::Wireframe);
}

TEST_F(SessionTest, FrameOptionsWriteAtOnceAndCancelKeepsWhatWasClicked) {
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

TEST_F(SessionTest, MaterialsAreEditedFromTheirNodes) {
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

TEST_F(SessionTest, UnchangedNamesKeepTheirBytes) {
    open();
    session_.model().Root.Name = "\xC9"; // not UTF-8: one character a byte
    EXPECT_TRUE(rename("\u00c9").tree);
    EXPECT_EQ(root().Name, "\xC9");
    EXPECT_TRUE(rename("\u00e9").tree);
    EXPECT_NE(root().Name, "\xC9");
}

TEST_F(SessionTest, LateAnswersOfDialogsAreDropped) {
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

TEST_F(SessionTest, SavingNeedsANameAndCountsEvenIfItFails) {
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

TEST_F(SessionTest, RefusedPastesSayWhy) {
    open();
    EXPECT_EQ(session_.paste("damaged").refusal.toStdString(),
              "The clipboard contains nothing that can be pasted.");
    run("copy");
    select("Materials");
    EXPECT_FALSE(session_.canPaste(ClipboardContent::Frame));
    EXPECT_NE(session_.paste(clipboard_).refusal, QString());
    EXPECT_FALSE(session_.canUndo());
}

TEST_F(SessionTest, ACancelledOrFailedReadLeavesNoHalfModel) {
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
