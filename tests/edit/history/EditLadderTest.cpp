#include "support/EditLadder.h"

#include "model/document/StructureTree.h"
#include "support/FrameMaking.h"
#include "support/RandomEdits.h"
#include "support/RandomModel.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using test::EditSnapshot;

/// A random model that can be compared.
ModelDocument comparableModel(std::uint32_t seed) {
    constexpr int deepest = 2; // a snapshot is taken for every edit
    ModelDocument document = test::RandomModel(seed, deepest).make();
    document.computeDerivedData();
    test::dropOddNormals(document.Root);
    return document;
}

/// Makes edits and keeps the rungs of the ladder: an edit that finds nothing to work on adds none,
/// one after an undo takes away those that it cuts off.
class Ladder {
  public:
    explicit Ladder(std::uint32_t seed)
        : document_(comparableModel(seed)), edits_(document_, history_, seed) {
        rungs_.emplace_back(document_);
    }

    template <class... Kind>
    void edit(Kind... kind) {
        const std::int32_t position = history_.position();
        edits_.make(kind...);
        const auto rung = static_cast<std::size_t>(history_.position() + 1);
        if (rung + 1 == rungs_.size() && position == history_.position()) {
            EXPECT_EQ(EditSnapshot(document_), rungs_.back()) << "changed without an entry";
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
        for (std::size_t i = history_.entries().size(); i > 0; --i) {
            history_.redo(document_);
        }
        return test::climb(document_, history_, rungs_);
    }
    [[nodiscard]] std::size_t rungs() const { return rungs_.size(); }

  private:
    ModelDocument document_;
    EditHistory history_;
    test::RandomEdits edits_;
    std::vector<EditSnapshot> rungs_;
};

TEST(EditLadder, EveryKindGoesDownAndUpTwice) {
    for (std::uint32_t kind = 1; kind <= 23; ++kind) {
        std::size_t edits = 0;
        for (std::uint32_t seed = 1; seed <= 12; ++seed) {
            Ladder ladder(100 * kind + seed);
            for (int i = 0; i < 6; ++i) {
                ladder.edit(static_cast<EditKind>(kind));
            }
            ASSERT_EQ(ladder.climb(), "") << "kind " << kind << " seed " << seed;
            edits += ladder.rungs() - 1;
        }
        EXPECT_GT(edits, 12U) << "kind " << kind;
    }
}

TEST(EditLadder, RandomSequences) {
    for (std::uint32_t seed = 1; seed <= 500; ++seed) {
        Ladder ladder(seed);
        for (int i = 0; i < 50; ++i) {
            ladder.edit();
            if (seed % 3 == 0 && i == 24) {
                ladder.goBack(10); // the next edit cuts these off
            }
        }
        ASSERT_EQ(ladder.climb(), "") << "seed " << seed;
    }
}

/// What the tree shows of a document, and where its frames are.
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
            const RefreshFlags flags = history.undo(document);
            const auto [treeBefore, placesBefore] = shown(document);
            EXPECT_TRUE(flags.rebuildTree || tree == treeBefore) << kind;
            EXPECT_TRUE(flags.refreshGeometry || places == placesBefore) << kind;
        }
    }
}

} // namespace
} // namespace korvane
