#include "render/software/SoftwareView.h"

#include "support/AllocationWatch.h"
#include "support/DrawnScenes.h"

#include <limits>
#include <new>

namespace korvane::test {
namespace {

constexpr BitmapPixel black = 0xff000000U;
constexpr BitmapPixel red = 0xffff0000U;
constexpr BitmapPixel green = 0xff00ff00U;

// larger coordinates would overflow single precision while clipping
const Renderer software = {"by software", [] { return bySoftware(); }, 1e15F};
INSTANTIATE_TEST_SUITE_P(Software, DrawnScenes, testing::Values(software));

/// Compares the samples, as the start camera sees them, with pictures checked by eye. Renew one by
///   korvane-tool render samples/NAME tests/render/software/baseline/NAME-MODE.png --mode MODE
///   --size 240x180
/// At most one pixel in 200 may differ by more than 24 levels in a channel: compilers round
/// differently, which moves edges by a pixel here and there.
TEST(SoftwareView, SamplesLookAsTheyDid) {
    const std::pair<const char*, RenderMode> modes[] = {{"wireframe", RenderMode::Wireframe},
                                                        {"flat", RenderMode::FlatShading},
                                                        {"smooth", RenderMode::SmoothShading}};
    for (const char* sample : {"windmill.xsi", "skiff.xsi", "lighthouse.x"}) {
        for (const auto& [name, mode] : modes) {
            const QImage baseline(QStringLiteral(KORVANE_BASELINE "/%1-%2.png")
                                      .arg(QString::fromLatin1(sample), QString::fromLatin1(name)));
            ASSERT_EQ(baseline.size(), QSize(240, 180)) << sample << ' ' << name;
            Scene scene({}, bySoftware(240, 180));
            scene.open(sample, baseline.size());
            scene.state.mode = mode;
            scene.redraw();
            EXPECT_LE(differing(scene.picture, baseline, 24), 0.005) << sample << ' ' << name;
        }
    }
}

TEST(SoftwareView, FacesAreDrawnFromTheirFrontUnlessTheFrameRendersBackwards) {
    Scene scene({plain(1, 0, 0)});
    addSquare(scene.mesh(), 2, 0);
    scene.state.angles.yaw = 0; // from behind
    EXPECT_EQ(scene.shown(), black);
    scene.document.Root.RenderBackwards = true;
    EXPECT_EQ(scene.shown(), red) << "lit from the side that is seen";
    scene.document.Root.RenderBackwards = false;
    scene.document.Root.Matrix[0] = -1; // the sides of a mirrored frame stay what they are
    EXPECT_EQ(scene.shown(), black);
}

TEST(SoftwareView, TranslucentFacesAreMixedFromFarToNear) {
    Scene scene({plain(1, 0, 0, 0.5F), plain(0, 1, 0, 0.5F), plain(0, 0, 1, 0.5F), plain(1, 1, 1)});
    MeshRecord& mesh = scene.mesh();
    addSquare(mesh, 2, 1, 0); // near, far, middle in the file, before an opaque one
    addSquare(mesh, 2, -1, 1);
    addSquare(mesh, 2, 0, 2);
    addSquare(mesh, 2, -2, 3);
    // white, half green: 80ff80; half blue: 4080c0; half red: a04060
    EXPECT_LE(difference(scene.shown(), 0xffa04060U), 2);
    scene.state.angles.yaw = 0; // from behind the white one is culled, and the order is the reverse
    EXPECT_LE(difference(scene.shown(), 0xff208040U), 2) << "red, blue, green over black";
    // as seen from in front, whatever the number of corners
    scene.state.angles.yaw = viewPi;
    scene.clearMesh();
    addSquare(mesh, 2, 0, 0);
    mesh.Vertices.insert(mesh.Vertices.end(), {{-2, -2, -1}, {2, -2, -1}, {0, 2, -1}});
    addFace(mesh, {4, 5, 6});
    mesh.FaceSlotIndex.push_back(1);
    EXPECT_LE(difference(scene.shown(), 0xff804000U), 2) << "the red square is nearer";
}

TEST(SoftwareView, DenseMeshesKeepTheirSmallFaces) {
    Scene scene({plain(1, 0, 0), plain(0, 1, 0)});
    MeshRecord& mesh = scene.mesh();
    constexpr std::uint32_t side = 41;
    for (std::uint32_t i = 0; i < side * side; ++i) {
        const auto at = [](std::uint32_t k) { return static_cast<float>(k) / (side - 1) * 2 - 1; };
        mesh.Vertices.push_back({at(i % side), at(i / side), 0});
        if (i % side > 0 && i > side) {
            addFace(mesh, {i - side - 1, i - side, i, i - 1});
        }
    }
    mesh.FaceSlotIndex.assign(mesh.Faces.size(), 0);
    scene.redraw();
    EXPECT_NEAR(scene.drawn(), 4 * scene.unit() * scene.unit(), 4 * scene.unit());
    const int alone = scene.count(red);
    addSquare(mesh, 5, -1, 1);
    EXPECT_EQ(scene.shown(0, 3.5F), green);
    EXPECT_EQ(scene.count(red), alone) << "a large face hides none of many small ones";
    // a small face beside large ones is left out
    scene.clearMesh();
    addSquare(mesh, 2, 0);
    mesh.Vertices.insert(mesh.Vertices.end(), {{2.2F, 0, 0}, {2.3F, 0, 0}, {2.3F, 0.1F, 0}});
    addFace(mesh, {4, 5, 6});
    EXPECT_EQ(scene.shown(2.27F, 0.02F), black);
    scene.state.backFaceThreshold = 0;
    EXPECT_EQ(scene.shown(2.27F, 0.02F), green) << "the threshold decides";
}

TEST(SoftwareView, AFailedResizeLeavesASizeThatCanBeDrawn) {
    Scene scene({plain(1, 0, 0)});
    addSquare(scene.mesh(), 2, 0);
    SoftwareView view;
    view.resize(8, 8);
    for (const std::size_t failing : {1U, 2U}) {
        const AllocationWatch watch(failing);
        EXPECT_THROW(view.resize(400, 300), std::bad_alloc);
        EXPECT_EQ(view.bitmap().width(), 8);
        view.redraw(scene.document, scene.state);
    }
    view.resize(400, 300);
    view.redraw(scene.document, scene.state);
    EXPECT_GT(countOtherThan(imageOf(view.bitmap()), black), 100U);
}

} // namespace
} // namespace korvane::test
