#include "edit/history/MaterialEdits.h"
#include "edit/history/PasteEdits.h"
#include "edit/history/SlotEdits.h"
#include "edit/history/StructureEdits.h"
#include "support/FrameMaking.h"

#include <gtest/gtest.h>

#include <functional>

namespace korvane {
namespace {

using test::named;
using test::path;

std::string namesOf(const std::vector<FrameRecord>& frames) {
    std::string names;
    for (const FrameRecord& frame : frames) {
        names += frame.Name + (frame.Children.empty() ? "" : "(" + namesOf(frame.Children) + ")");
    }
    return names;
}

class History : public ::testing::Test {
  protected:
    History() {
        document.Root = named("r", {named("a", {named("x"), named("y")}), named("b"), named("c")});
        document.Materials.resize(3);
        document.computeDerivedData();
        document.Modified = false;
    }
    /// Sets the slots and face slots of a frame's mesh.
    MeshRecord& mesh(FrameRecord& frame, std::vector<std::int32_t> slots,
                     std::vector<std::int32_t> faces) {
        frame.HasMesh = frame.Mesh.HasMaterials = true;
        frame.Mesh.MaterialSlotList = std::move(slots);
        frame.Mesh.FaceSlotIndex = std::move(faces);
        return frame.Mesh;
    }

    ModelDocument document;
    EditHistory history;
};

TEST_F(History, PositionAndTail) {
    EXPECT_EQ(history.undo(document).refresh, RefreshFlags());
    EXPECT_EQ(history.redo(document).refresh, RefreshFlags());
    EXPECT_FALSE(history.canUndo() || history.canRedo() || document.Modified);
    renameFrame(history, document, path({1}), "one");
    renameFrame(history, document, path({1}), "two");
    EXPECT_TRUE(document.Modified);
    EXPECT_EQ(history.position(), 1);
    document.Modified = false;
    history.undo(document);
    EXPECT_TRUE(history.canUndo() && history.canRedo() && document.Modified);
    EXPECT_EQ(history.redoName(), "rename frame");
    addFrame(history, document, path({1}), "three");
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.redoName(), "");
    EXPECT_EQ(history.undoName(), "add frame");
    EXPECT_EQ(history.entries().size(), 2U);
    history.undo(document);
    document.Modified = false;
    history.redo(document);
    EXPECT_EQ(document.Root.Children[0].Children.back().Name, "three");
    EXPECT_TRUE(document.Modified);
}

TEST_F(History, StepsReturnTheirFrame) {
    renameFrame(history, document, path({1, 2}), "n");
    EXPECT_EQ(history.undo(document).frame, path({1, 2}));
    deleteFrame(history, document, path({1, 1})); // drops the rename
    EXPECT_EQ(namesOf(document.Root.Children), "a(y)bc");
    EXPECT_EQ(history.undo(document).frame, path({1})) << "the parent";
    EXPECT_EQ(namesOf(document.Root.Children), "a(xy)bc");
    setAmbient(history, document, 0, {});
    EXPECT_EQ(history.undo(document).frame, std::nullopt);
    EXPECT_EQ(document.Selected, NodeData()) << "the selection is the caller's";
}

TEST_F(History, FramesNestNoDeeperThanTheLimit) {
    std::vector<std::int32_t> numbers = test::chainBelow(document.Root, maxFrameDepth);
    addFrame(history, document, path(numbers), "");
    pasteFrame(history, document, path(numbers), {}, {});
    EXPECT_FALSE(history.canUndo());
    numbers.pop_back();
    pasteFrame(history, document, path(numbers), named("p", {named("q")}), {});
    EXPECT_FALSE(history.canUndo());
    pasteFrame(history, document, path(numbers), named("p"), {});
    EXPECT_TRUE(history.canUndo());
}

TEST_F(History, FacesOfSlotZeroStayWhenASlotIsRemoved) {
    MeshRecord& m = mesh(document.Root, {2, 0, 1}, {0, 1, 2, 7, -1});
    removeSlot(history, document, FramePath(), 0);
    EXPECT_EQ(m.MaterialSlotList, (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(m.FaceSlotIndex, (std::vector<std::int32_t>{0, 0, 1, 6, -1}));
    history.undo(document);
    EXPECT_EQ(m.FaceSlotIndex, (std::vector<std::int32_t>{0, 1, 2, 7, -1}));
}

TEST_F(History, AFaceWithoutASlotGetsOneAndSoDoThoseBefore) {
    MeshRecord& m = mesh(document.Root.Children[0], {0, 1, 2}, {1});
    for (int face = 0; face < 5; ++face) {
        m.Faces.push_back(std::vector<std::uint32_t>{0, 0, 0});
    }
    setFaceSlot(history, document, path({1}), 3, 0);
    EXPECT_EQ(m.FaceSlotIndex, (std::vector<std::int32_t>{1, 2, 2, 0})) << "as they were drawn";
    history.undo(document);
    EXPECT_EQ(m.FaceSlotIndex, (std::vector<std::int32_t>{1}));
    setFaceSlot(history, document, path({1}), 5, 0); // no such face
    EXPECT_FALSE(history.canUndo());
    m.MaterialSlotList.clear();
    setFaceSlot(history, document, path({1}), 3, 0);
    EXPECT_EQ(m.FaceSlotIndex, (std::vector<std::int32_t>{1, 0, 0, 0}));
}

TEST_F(History, ADeletedMaterialLeavesEveryMesh) {
    MeshRecord& twice = mesh(document.Root, {1, 2, 1}, {0, 1, 2});
    MeshRecord& once = mesh(document.Root.Children[0].Children[1], {2, 1}, {1, 0});
    MeshRecord& hidden = mesh(document.Root.Children[1], {1, 2}, {0});
    document.Root.Children[1].HasMesh = false; // but may be switched on again
    deleteMaterial(history, document, 1);
    EXPECT_EQ(twice.MaterialSlotList, (std::vector<std::int32_t>{1}));
    EXPECT_EQ(twice.FaceSlotIndex, (std::vector<std::int32_t>{0, 0, 0}));
    EXPECT_EQ(once.MaterialSlotList, (std::vector<std::int32_t>{1}));
    EXPECT_EQ(once.FaceSlotIndex, (std::vector<std::int32_t>{0, 0}));
    EXPECT_EQ(hidden.MaterialSlotList, (std::vector<std::int32_t>{1}));
    document.Root.Children[1].HasMesh = true; // without an entry, like a cancelled dialog
    history.undo(document);
    EXPECT_EQ(hidden.MaterialSlotList, (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(twice.MaterialSlotList, (std::vector<std::int32_t>{1, 2, 1}));
    EXPECT_EQ(twice.FaceSlotIndex, (std::vector<std::int32_t>{0, 1, 2}));
}

TEST_F(History, ExceptionFreshDefaultOnRedo) {
    addMaterial(history, document);
    document.Materials.back().Power = 1; // not recorded
    history.undo(document);
    history.redo(document);
    EXPECT_EQ(document.Materials.back(), MaterialRecord());
}

TEST_F(History, ExceptionFrameDialogCancelled) {
    // a cancelled dialog leaves its flags without an entry: the next step includes them
    FrameRecord& frame = document.Root.Children[0];
    const FrameFlags before = frameFlags(frame);
    frame.GFlag = true;
    recordFrameOptions(history, document, path({1}), before);
    frame.Emissive = true; // cancelled
    history.undo(document);
    EXPECT_EQ(frameFlags(frame), before);
    history.redo(document);
    EXPECT_TRUE(frame.GFlag && !frame.Emissive);
}

TEST_F(History, TexturesAreReloaded) {
    std::vector<std::string> loaded;
    EditHistory withTextures([&loaded](const std::string& name) {
        loaded.push_back(name);
        return std::make_shared<const TextureImage>();
    });
    document.Materials[0].TextureFile = "old.tga";
    setTextureFile(withTextures, document, 0, "new.tga");
    const auto image = document.Materials[0].TextureImage;
    withTextures.undo(document);
    EXPECT_EQ(document.Materials[0].TextureFile, "old.tga");
    withTextures.redo(document);
    EXPECT_NE(document.Materials[0].TextureImage, image);
    EXPECT_EQ(loaded, (std::vector<std::string>{"new.tga", "old.tga", "new.tga"}));
    const auto own = std::make_shared<const TextureImage>();
    setTextureFile(withTextures, document, 0, "own.tga", own); // already loaded
    EXPECT_EQ(document.Materials[0].TextureImage, own);
    EXPECT_EQ(loaded.size(), 3U);
}

TEST_F(History, EditsOfMeshListsChangeTheirRevision) {
    FrameRecord& frame = document.Root.Children[0];
    MeshRecord& list = mesh(frame, {0, 1}, {1});
    list.Vertices.resize(3);
    list.TexCoords.resize(1);
    const std::pair<const char*, std::function<void()>> edits[] = {
        {"coordinates",
         [&] {
             recordTexCoords(history, document, path({1}), {{0}}, {{0, 0}}, {{1, 1}});
         }},
        {"slot of a face", [&] { setFaceSlot(history, document, path({1}), 0, 1); }},
        {"slot", [&] { removeSlot(history, document, path({1}), 0); }},
        {"material", [&] { deleteMaterial(history, document, 1); }},
        {"added material", [&] { addMeshMaterial(history, document, path({1})); }},
        {"pasted material", [&] { pasteMeshMaterials(history, document, path({1}), {{}}); }}};
    for (const auto& [name, edit] : edits) {
        for (const auto& way : {edit, {[&] { history.undo(document); }}}) {
            const auto before = list.ListRevision.any();
            way();
            EXPECT_NE(list.ListRevision.any(), before) << name;
        }
    }
}

TEST_F(History, WhatLeadsNowhereIsIgnored) {
    setFaceSlot(history, document, path({1}), -1, 0);
    removeSlot(history, document, path({1}), -1);
    renameFrame(history, document, path({4}), "n");
    pasteFrame(history, document, path({9}), {}, {});
    deleteFrame(history, document, FramePath()); // the root stays
    deleteFrame(history, document, path({4}));
    EXPECT_FALSE(history.canUndo());
    // changes without the history: entries find nothing, but the position still moves
    recordTexCoords(history, document, path({1}), std::vector<std::int32_t>{5, -1}, {{}, {}},
                    {{}, {}});
    renameFrame(history, document, path({3}), "n");
    appendSlot(history, document, path({3}), 0);
    pasteMaterials(history, document, {{}, {}});
    document.Root.Children.pop_back();
    document.Materials.clear();
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NE(history.undo(document).frame, path({3})) << "it is gone";
    }
    EXPECT_FALSE(history.canUndo());
    for (std::size_t i = 0; i < 4; ++i) {
        history.redo(document);
    }
    EXPECT_EQ(history.position(), 3);
}

} // namespace
} // namespace korvane
