#include "render/scene/DrawCache.h"

#include "render/scene/NothingShown.h"
#include "support/Scene.h"

namespace korvane::test {
namespace {

TEST(DrawCache, IsRebuiltWhenItsInputChangesAndBelongsToOneFrame) {
    Scene scene({plain(1, 0, 0)});
    addSquare(scene.mesh(), 1, 0);
    FrameRecord& frame = scene.document.Root;
    const auto builds = [](FrameRecord& of) { return drawCache(of).refresh(of.Mesh, of.Matrix); };
    EXPECT_TRUE(builds(frame));
    EXPECT_FALSE(builds(frame));
    scene.draw(scene.document, scene.state);
    EXPECT_FALSE(builds(frame)) << "drawing changes nothing";
    frame.Matrix[12] = 5;
    EXPECT_TRUE(builds(frame));
    EXPECT_EQ(drawCache(frame).WorldVertices[0], (Vec3{4, -1, 0}));
    addSquare(frame.Mesh, 1, 0);
    EXPECT_TRUE(builds(frame));
    EXPECT_EQ(drawCache(frame).WorldCache3.size(), 2U);
    FrameRecord copy = frame;
    EXPECT_EQ(copy, frame);
    EXPECT_TRUE(drawCache(copy).WorldVertices.empty());
    EXPECT_TRUE(builds(copy));
    copy = frame;
    EXPECT_TRUE(drawCache(copy).WorldVertices.empty());
    EXPECT_TRUE(builds(copy));
    // a moved mesh takes its revision along and leaves a new one behind
    FrameRecord taker = frame;
    taker.Mesh = std::move(copy.Mesh);
    EXPECT_TRUE(builds(taker));
    EXPECT_FALSE(builds(taker));
    EXPECT_TRUE(builds(copy));
    EXPECT_FALSE(builds(frame));
}

TEST(NothingShown, IsExplained) {
    Scene scene({plain(1, 0, 0, 0.0F), plain(0, 1, 0)});
    const auto reason = [&] { return whyNothingShows(scene.document, scene.state).toStdString(); };
    const char* const hidden = "Every mesh is hidden.";
    const char* const clear = "Every mesh shown has opacity 0.";
    scene.document.Root.HasMesh = false;
    EXPECT_EQ(reason(), "The model has no mesh.");
    scene.document.Root.HasMesh = true;
    EXPECT_EQ(reason(), "The model has no faces.");
    addSquare(scene.mesh(), 1, 0, 0);
    EXPECT_EQ(reason(), clear);
    scene.document.Root.ViewFlags[2] = false;
    EXPECT_EQ(reason(), hidden);
    scene.document.Root.Children.push_back(scene.document.Root);
    FrameRecord& child = scene.document.Root.Children[0];
    child.ViewFlags[2] = true;
    EXPECT_EQ(reason(), clear);
    scene.state.allowTransparent = false;
    EXPECT_EQ(reason(), "");
    scene.state.allowTransparent = true;
    for (const std::int32_t slot : {1, 2, -1}) { // the other material, or none
        child.Mesh.FaceSlotIndex = {slot};
        EXPECT_EQ(reason(), "") << slot;
    }
    child.HasMesh = false;
    EXPECT_EQ(reason(), hidden);
}

} // namespace
} // namespace korvane::test
