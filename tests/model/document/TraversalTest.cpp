#include "support/FrameMaking.h"
#include "support/RandomModel.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using test::named;
using test::path;

TEST(Traversal, CursorSurvivesEdits) {
    ModelDocument document;
    document.Root = named("r", {named("a", {named("b")})});
    document.ResetRenderList();
    EXPECT_TRUE(document.IncRenderList() && document.IncRenderList());
    document.Root.Children.clear();
    EXPECT_EQ(document.GetFramePtr(), nullptr);
    EXPECT_FALSE(document.IncRenderList());
}

TEST(Traversal, WalkAgreesWithTheCursor) {
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
        ModelDocument document = test::RandomModel(seed).make();
        document.ResetRenderList();
        for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
            ASSERT_EQ(&walk.frame(), document.GetFramePtr());
            ASSERT_EQ(walk.depth(), static_cast<std::size_t>(document.Cursor.CursorDepth));
            ASSERT_EQ(FramePath(walk.childNumbers()), FramePath(document.Cursor.childNumbers()));
            ASSERT_EQ(walk.depth() > 0 ? &walk.parent() : &document.Root, document.GetParentPtr());
            document.IncRenderList();
        }
        EXPECT_FALSE(document.IncRenderList());
        EXPECT_FALSE(document.IncRenderList()); // stays at the end
    }
}

TEST(Traversal, WorldMatrixPutsTheOwnMatrixFirst) {
    ModelDocument document;
    document.Root = named("r", {named("a")});
    document.Root.Matrix[0] = 2; // scales x after the child has moved
    document.Root.Children[0].Matrix[12] = 5;
    document.ResetRenderList();
    document.IncRenderList();
    EXPECT_EQ(VectorMatrix({1, 0, 0}, document.GetFrameMatrix()), (Vec3{12, 0, 0}));
}

TEST(Traversal, PathsLeadToFramesOrNowhere) {
    FrameRecord root = named("r", {named("a"), named("b", {named("c")})});
    EXPECT_EQ(frameAt(root, path({2, 1}))->Name, "c");
    EXPECT_EQ(frameAt(root, FramePath()), &root);
    for (const FramePath& bad : {path({0}), path({-1}), path({3}), path({1, 1}), path({2, 1, 1})}) {
        EXPECT_EQ(frameAt(root, bad), nullptr);
    }
}

void addFace(MeshRecord& mesh, std::vector<Vec3> corners) {
    std::uint32_t next = static_cast<std::uint32_t>(mesh.Vertices.size());
    for (std::uint32_t& corner : mesh.Faces.openCorners(corners.size())) {
        corner = next++;
    }
    mesh.Faces.closePolygon();
    mesh.Vertices.insert(mesh.Vertices.end(), corners.begin(), corners.end());
}

TEST(DerivedData, BoundsIgnoreAllButTheLastCornerOfTheFirstFace) {
    ModelDocument document;
    MeshRecord& mesh = document.Root.Mesh;
    addFace(mesh, {{-9, -9, -9}, {9, 9, 9}, {1, 2, 3}});
    document.computeDerivedData();
    EXPECT_EQ(document.Root.BoundMin, (Vec3{1, 2, 3}));
    EXPECT_EQ(document.Root.BoundMax, (Vec3{1, 2, 3}));
    addFace(mesh, {{0, 3, 3}, {2, 2, 5}});
    const std::uint32_t wild[] = {0xFFFFFFFFU, 5}; // both lead nowhere
    mesh.Faces.push_back(wild);
    document.computeDerivedData();
    EXPECT_EQ(document.Root.BoundMin, (Vec3{0, 2, 3}));
    EXPECT_EQ(document.Root.BoundMax, (Vec3{2, 3, 5}));
}

TEST(DerivedData, FaceNormalsAverageWhatTheirIndicesReach) {
    ModelDocument document;
    MeshRecord& mesh = document.Root.Mesh;
    mesh.Normals = {{2, 0, 0}, {0, 2, 0}};
    const std::uint32_t both[] = {0, 1, 77};
    const std::uint32_t none[] = {77};
    mesh.NormalFaces.push_back(both);
    mesh.NormalFaces.push_back(none);
    document.computeDerivedData();
    document.computeDerivedData(); // the second time replaces the first
    const float half = Normalize({1, 1, 0}).x;
    EXPECT_EQ(mesh.FaceNormals, (std::vector<Vec3>{{half, half, 0}, {0, 0, 0}}));
}

TEST(DerivedData, NonfiledataTakesThePathFromTheCursor) {
    ModelDocument document;
    document.Root = named("r", {named("a"), named("b")});
    document.ResetRenderList();
    document.Nonfiledata(document.Root.Children[0]);
    document.Nonfiledata(document.Root.Children[1]);
    EXPECT_EQ(document.Root.Children[1].Path, path({2}));
    EXPECT_EQ(document.Root.Children[1].PathDepth, 1);
}

TEST(Selection, MarksTheFrameAndItsDescendants) {
    ModelDocument document;
    document.Root = named("r", {named("a", {named("b")}), named("c")});
    const auto states = [&document](const FramePath& selected) {
        document.markSelection(selected);
        std::vector<SelectState> all;
        for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
            all.push_back(walk.frame().SelectState);
        }
        return all;
    };
    using enum SelectState;
    EXPECT_EQ(states(FramePath()), (std::vector{Selected, Descendant, Descendant, Descendant}));
    EXPECT_EQ(states(path({1})), (std::vector{Other, Selected, Descendant, Other}));
}

} // namespace
} // namespace korvane
