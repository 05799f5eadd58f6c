#include "support/EditLadder.h"

#include "model/document/StructureTree.h"
#include "support/AllocationWatch.h"
#include "support/FrameMaking.h"
#include "support/RandomEdits.h"
#include "support/RandomModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <new>
#include <tuple>
#include <utility>

namespace korvane {
namespace {

using test::EditSnapshot;

/// A random model without NaN normals, so that it can be compared.
ModelDocument comparableModel(std::uint32_t seed) {
    constexpr int deepest = 2; // a snapshot is taken for every edit
    ModelDocument document = test::RandomModel(seed, deepest).make();
    document.computeDerivedData();
    test::dropOddNormals(document.Root);
    return document;
}

/// Makes edits and keeps the rungs of the ladder. An edit that finds nothing to work on adds none;
/// one after an undo removes those that it cuts off.
class Ladder {
  public:
    explicit Ladder(std::uint32_t seed)
        : document_(comparableModel(seed)), edits_(document_, history_, seed) {
        rungs_.emplace_back(document_);
    }

    template <class... Kind>
    void edit(Kind... kind) {
        const std::int32_t position = history_.position();
        const std::size_t entries = history_.entries().size();
        edits_.make(kind...);
        const std::size_t rung = steps();
        if (position == history_.position() && entries == history_.entries().size()) {
            EXPECT_EQ(EditSnapshot(document_), rungs_[rung]) << "changed without an entry";
            return;
        }
        rungs_.erase(rungs_.begin() + static_cast<std::ptrdiff_t>(rung), rungs_.end());
        rungs_.emplace_back(document_);
    }
    void goBack(int steps) {
        for (; steps > 0 && history_.canUndo(); --steps) {
            history_.undo(document_);
        }
    }
    std::string climb() {
        while (history_.canRedo()) {
            history_.redo(document_);
        }
        return test::climb(document_, history_, rungs_);
    }
    [[nodiscard]] std::size_t rungs() const { return rungs_.size(); }

  private:
    /// The number of applied steps.
    [[nodiscard]] std::size_t steps() const {
        return static_cast<std::size_t>(history_.position() + 1);
    }

    ModelDocument document_;
    EditHistory history_;
    test::RandomEdits edits_;
    std::vector<EditSnapshot> rungs_;
};

TEST(EditLadder, EveryKindAndAnySequenceGoDownAndUpTwice) {
    std::map<std::uint32_t, std::size_t> edits; // of each kind
    for (std::uint32_t seed = 1; seed <= 300; ++seed) {
        Ladder ladder(seed);
        const std::uint32_t kind = seed % 23 + 1;
        for (int i = 0; i < 6; ++i) {
            ladder.edit(static_cast<EditKind>(kind));
        }
        edits[kind] += ladder.rungs() - 1;
        for (int i = 0; i < 44; ++i) {
            ladder.edit();
            if (seed % 3 == 0 && i == 20) {
                ladder.goBack(10); // the next edit cuts these off
            }
        }
        ASSERT_EQ(ladder.climb(), "") << "seed " << seed;
    }
    for (const auto& [kind, made] : edits) {
        EXPECT_GT(made, 12U) << "kind " << kind;
    }
}

/// What the tree shows of a document, and the matrices of its frames.
std::pair<std::string, std::vector<Matrix4>> shown(ModelDocument& document) {
    std::pair<std::string, std::vector<Matrix4>> all;
    const StructureTree tree(document);
    for (const StructureNode& node : tree.nodes()) {
        all.first += std::to_string(node.parent) + node.text + (node.deletable ? "-\n" : "\n");
    }
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        all.second.push_back(walk.frame().Matrix);
    }
    return all;
}

TEST(EditLadder, WhatChangesIsRefreshed) {
    for (std::uint32_t kind = 1; kind <= 23; ++kind) {
        for (std::uint32_t seed = 1; seed <= 6; ++seed) {
            ModelDocument document = comparableModel(100 * kind + seed);
            EditHistory history;
            test::RandomEdits(document, history, seed).make(static_cast<EditKind>(kind));
            const auto [tree, places] = shown(document);
            const RefreshFlags flags = history.undo(document).refresh;
            const auto [treeBefore, placesBefore] = shown(document);
            EXPECT_TRUE(flags.rebuildTree || tree == treeBefore) << kind;
            EXPECT_TRUE(flags.refreshGeometry || places == placesBefore) << kind;
        }
    }
}

/// All that a failed edit must not change.
struct State {
    State(const ModelDocument& document, const EditHistory& history)
        : model(document), modified(document.Modified), revision(document.Revision),
          position(history.position()), names(history.undoName()) {
        names += history.redoName();
        for (const EditAction& entry : history.entries()) {
            entries.emplace_back(entry.kind, entry.index, entry.path);
        }
    }

    EditSnapshot model;
    bool modified;
    std::uint64_t revision;
    std::int32_t position;
    std::string names;
    std::vector<std::tuple<EditKind, std::uint32_t, std::vector<std::int32_t>>> entries;

    bool operator==(const State&) const = default;
};

/// A document with its history; loading a texture allocates memory.
struct Desk {
    explicit Desk(std::uint32_t seed)
        : document(comparableModel(seed)), edits(document, history, seed) {}

    void undo() { history.undo(document); }
    void redo() { history.redo(document); }

    ModelDocument document;
    EditHistory history{[](const std::string& name) {
        return std::make_pair(name + "whatever file it comes from", blankTextureImage()).second;
    }};
    test::RandomEdits edits;
};

/// Makes each memory request of an edit fail in turn, until the edit succeeds.
template <class Edit>
void failAtEach(Desk& desk, const Edit& edit) {
    desk.document.Modified = false;
    const State before(desk.document, desk.history);
    for (std::size_t request = 1;; ++request) {
        try {
            const test::AllocationWatch watch(request);
            return edit();
        } catch (const std::bad_alloc&) {
            ASSERT_EQ(State(desk.document, desk.history), before) << "request " << request;
        }
    }
}

TEST(EditLadder, WithoutMemoryAnEditHappensInFullOrNotAtAll) {
    for (std::uint32_t kind = 1; kind <= 23; ++kind) {
        for (std::uint32_t seed = 1; seed <= 5; ++seed) {
            SCOPED_TRACE("kind " + std::to_string(kind) + " seed " + std::to_string(seed));
            Desk desk(seed);
            desk.edits.make(EditKind::AddMaterial);
            desk.edits.make(EditKind::RenameFrame);
            desk.undo();
            const auto edit = desk.edits.prepare(static_cast<EditKind>(kind));
            failAtEach(desk, edit);
            if (desk.history.canRedo()) {
                continue; // there was nothing to edit
            }
            const EditSnapshot after(desk.document);
            failAtEach(desk, [&] { desk.undo(); });
            const EditSnapshot undone(desk.document);
            failAtEach(desk, [&] { desk.redo(); });
            EXPECT_EQ(EditSnapshot(desk.document), after);
            failAtEach(desk, [&] { desk.undo(); });
            EXPECT_EQ(EditSnapshot(desk.document), undone);
        }
    }
}

/// A model of `size` frames, each with a mesh of as many faces and texture coordinates.
ModelDocument modelOfSize(std::size_t size) {
    ModelDocument document;
    document.Materials.resize(3);
    document.Root.Children.assign(size, test::named("some frame with a name"));
    for (FrameRecord& frame : document.Root.Children) {
        frame.Mesh.TexCoords.resize(size);
        frame.Mesh.MaterialSlotList = {0, 1, 2};
        frame.Mesh.FaceSlotIndex.assign(size, 2);
    }
    document.computeDerivedData();
    return document;
}

std::ptrdiff_t bytesOf(const ModelDocument& document) {
    const test::AllocationWatch watch;
    const std::pair copy(document.Root, document.Materials);
    return watch.kept();
}

TEST(EditLadder, AStepKeepsNoMoreThanItChanges) {
    // the bytes of the elements that a step changes in place
    const auto changed = [](EditKind kind, std::ptrdiff_t size) -> std::ptrdiff_t {
        switch (kind) {
        case EditKind::TexCoords:
            return 20 * size;
        case EditKind::RemoveSlot:
            return 4 * size;
        case EditKind::DeleteMaterial:
            return 24 * size + 4 * size * size;
        default:
            return 0;
        }
    };
    constexpr auto entry = static_cast<std::ptrdiff_t>(sizeof(EditAction)) + 200;
    for (std::uint32_t number = 1; number <= 23; ++number) {
        for (const std::ptrdiff_t size : {4, 64}) {
            for (const bool undone : {false, true}) {
                ModelDocument document = modelOfSize(static_cast<std::size_t>(size));
                EditHistory history;
                test::RandomEdits edits(document, history, number);
                const auto kind = static_cast<EditKind>(number);
                std::ptrdiff_t bytes = 0;
                while (!history.canUndo()) {
                    bytes = bytesOf(document);
                    edits.make(kind);
                }
                bytes -= bytesOf(document);
                if (undone) {
                    history.undo(document);
                    bytes = -bytes;
                }
                const test::AllocationWatch watch;
                history = EditHistory();
                EXPECT_LE(-watch.kept(),
                          entry + changed(kind, size) + std::max<std::ptrdiff_t>(bytes, 0) * 5 / 4)
                    << number << " size " << size << (undone ? " undone" : "");
            }
        }
    }
}

} // namespace
} // namespace korvane
