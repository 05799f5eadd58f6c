#include "render/picking/FramePicking.h"

#include "support/Scene.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <tuple>

namespace korvane::test {
namespace {

/// The names of the frames, separated by blanks.
std::string names(const ModelDocument& document, const std::vector<FramePath>& frames) {
    std::string found;
    for (const FramePath& path : frames) {
        found += (found.empty() ? "" : " ") + frameAt(document.Root, path)->Name;
    }
    return found;
}

/// A colour that is unique to a material in any light.
ColorRGB colorOf(std::size_t material) {
    return {static_cast<float>(material % 6 + 1) * 0.125F,
            static_cast<float>(material / 6 % 6 + 1) * 0.125F, 0.5F};
}

/// Adds frames of triangles all over the view and behind the eye, each in its own colour. Some are
/// mirrored, some hidden, some show both sides, some have opacity 0.
void addRandomFrames(Scene& scene, std::mt19937& random, std::size_t count) {
    std::uniform_real_distribution<float> place(-4, 4);
    std::uniform_real_distribution<float> depth(-6, 13);
    for (std::size_t i = 0; i < count; ++i) {
        FrameRecord& frame = scene.document.Root.Children.emplace_back();
        frame.Name = std::to_string(i);
        frame.HasMesh = frame.Mesh.HasMaterials = true;
        frame.RenderBackwards = i % 3 == 0;
        frame.ViewFlags[i % 2 * 2] = i % 11 != 10;
        frame.Matrix[0] = i % 4 == 1 ? -1.0F : 1.0F;
        MaterialRecord& material = scene.document.Materials.emplace_back(plain(0, 0, 0));
        material.Emissive = colorOf(i);
        material.FaceColor.alpha = i % 7 == 6 ? 0.0F : 1.0F;
        frame.Mesh.MaterialSlotList = {static_cast<std::int32_t>(i)};
        for (std::uint32_t face = 0; face < 2; ++face) {
            for (int corner = 0; corner < 3; ++corner) {
                frame.Mesh.Vertices.push_back({place(random), place(random), depth(random)});
            }
            addFace(frame.Mesh, {face * 3, face * 3 + 1, face * 3 + 2});
        }
    }
    scene.document.computeDerivedData();
}

TEST(FramePicking, TheFirstFrameIsTheOneThatThePictureShows) {
    int compared = 0;
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        Scene scene({});
        addRandomFrames(scene, random, 30);
        scene.state.scaleFactor = seed % 2 == 0 ? 1.0F : 0.5F;
        scene.state.backFaceThreshold = 0;
        scene.redraw();
        for (int i = 0; i < 200; ++i) {
            const int x = static_cast<int>(random() % 198) + 1;
            const int y = static_cast<int>(random() % 198) + 1;
            const QRgb shown = scene.picture.pixel(x, y);
            const QRgb around[] = {scene.picture.pixel(x - 1, y), scene.picture.pixel(x + 1, y),
                                   scene.picture.pixel(x, y - 1), scene.picture.pixel(x, y + 1)};
            if (std::any_of(std::begin(around), std::end(around),
                            [&](QRgb pixel) { return pixel != shown; })) {
                continue; // at an edge, rounding may go either way
            }
            const std::vector<FramePath> frames =
                framesInSpace(scene.document, scene.state, ViewGeometry(200, 200),
                              static_cast<float>(x), static_cast<float>(y));
            QRgb expected = scene.state.colors.background;
            if (!frames.empty()) {
                const FrameRecord* frame = frameAt(scene.document.Root, frames.front());
                const ColorRGB color = colorOf(std::stoul(frame->Name));
                expected =
                    qRgb(static_cast<int>(color.red * 255), static_cast<int>(color.green * 255),
                         static_cast<int>(color.blue * 255));
            }
            ++compared;
            EXPECT_LE(difference(shown, expected), 2)
                << seed << ": " << x << ' ' << y << ' ' << names(scene.document, frames);
        }
    }
    EXPECT_GT(compared, 5000);
}

/// Squares below an empty root, of half sides 1, 2 and 3: "back" is the farthest from the eye.
Scene threeSquares() {
    Scene scene({plain(1, 0, 0)});
    const std::tuple<const char*, float, float> frames[] = {
        {"back", 3.0F, -1.0F}, {"front", 1.0F, 1.0F}, {"middle", 2.0F, 0.0F}};
    for (const auto& [name, half, z] : frames) {
        FrameRecord& frame = scene.document.Root.Children.emplace_back();
        frame.Name = name;
        frame.HasMesh = frame.Mesh.HasMaterials = true;
        frame.Mesh.MaterialSlotList = {0};
        addSquare(frame.Mesh, half, z);
    }
    scene.document.computeDerivedData();
    return scene;
}

struct Change {
    const char* what;
    void (*make)(Scene&);
    const char* space; ///< the frames then in the centre of the 3D view
    const char* plane; ///< and 4 pixels to the left of the right edge of "middle" in a 2D view
};

TEST(FramePicking, FramesRankByWhatShows) {
    const Change changes[] = {
        {"nothing", [](Scene&) {}, "front middle back", "middle"},
        {"turned away", [](Scene& scene) { scene.document.Root.Children[1].Matrix[0] = -1; },
         "front middle back", "middle"},
        {"seen from behind", [](Scene& scene) { scene.state.angles.yaw = 0; }, "", "middle"},
        {"both sides of one",
         [](Scene& scene) {
             scene.state.angles.yaw = 0;
             scene.document.Root.Children[2].RenderBackwards = true;
         },
         "middle", "middle"},
        {"far sides of translucent faces",
         [](Scene& scene) {
             scene.state.angles.yaw = 0;
             scene.document.Materials[0].FaceColor.alpha = 0.5F;
         },
         "back middle front", "middle"},
        {"hidden", [](Scene& scene) { scene.document.Root.Children[2].ViewFlags[2] = false; },
         "front back", ""},
        {"opacity 0", [](Scene& scene) { scene.document.Materials[0].FaceColor.alpha = 0; }, "",
         "middle"},
        {"opacity 0 without transparency",
         [](Scene& scene) {
             scene.document.Materials[0].FaceColor.alpha = 0;
             scene.state.mode = RenderMode::FlatShading;
         },
         "front middle back", "middle"},
        {"behind the eye", [](Scene& scene) { scene.document.Root.Children[1].Matrix[14] = 9.5F; },
         "middle back", "middle"},
        {"beyond the depth",
         [](Scene& scene) { scene.document.Root.Children[0].Matrix[14] = -5000; }, "front middle",
         "middle"},
        {"corners that lead nowhere or are not finite",
         [](Scene& scene) {
             addFace(scene.document.Root.Children[0].Mesh, {0, 1, 99});
             MeshRecord& front = scene.document.Root.Children[1].Mesh;
             front.Vertices[0].x = std::numeric_limits<float>::quiet_NaN();
             front.ListRevision.shapeChanged();
         },
         "middle back", "middle"},
        {"two at one place",
         [](Scene& scene) { scene.document.Root.Children[0] = scene.document.Root.Children[2]; },
         "front middle middle", "middle middle"}};
    for (const Change& change : changes) {
        Scene scene = threeSquares();
        change.make(scene);
        scene.document.computeDerivedData();
        const auto space =
            framesInSpace(scene.document, scene.state, ViewGeometry(200, 200), 100, 100);
        EXPECT_EQ(names(scene.document, space), change.space) << change.what;
        const PlaneMapping mapping = planeMapping(ViewPlane::XY, 200, 200, 10, {});
        const auto plane = framesInPlane(scene.document, mapping, 116, 100);
        EXPECT_EQ(names(scene.document, plane), change.plane) << change.what;
    }
}

TEST(FramePicking, LinesInReachRankByDistance) {
    Scene scene = threeSquares();
    const auto find = [&](int x, int y, bool plane) {
        const auto column = static_cast<float>(x);
        const auto row = static_cast<float>(y);
        return names(
            scene.document,
            plane
                ? framesInPlane(scene.document, planeMapping(ViewPlane::XY, 200, 200, 4, {}),
                                column, row)
                : framesInSpace(scene.document, scene.state, ViewGeometry(200, 200), column, row));
    };
    const std::tuple<int, const char*> inPlane[] = {{100, "front"},
                                                    {103, "front middle"},
                                                    {106, "front middle"},
                                                    {107, "middle front back"},
                                                    {110, "back middle"},
                                                    {117, "back"},
                                                    {118, ""}};
    for (const auto& [x, expected] : inPlane) {
        EXPECT_EQ(find(x, 100, true), expected) << x;
    }
    // from in front of the eye to behind it
    FrameRecord& line = scene.document.Root.Children[1].Children.emplace_back();
    line.Name = "long";
    line.HasMesh = true;
    line.Mesh.Vertices = {{2, -1, 0}, {2, 1, 0}, {2, 0, 20}};
    addFace(line.Mesh, {0, 1, 2});
    scene.document.computeDerivedData();
    scene.state.mode = RenderMode::Wireframe;
    const std::tuple<int, int, const char*> inSpace[] = {
        {119, 100, "front"}, {134, 70, "middle"}, {142, 130, "back"},
        {141, 130, ""},      {169, 74, "long"},   {134, 100, "long middle"}};
    for (const auto& [x, y, expected] : inSpace) {
        EXPECT_EQ(find(x, y, false), expected) << x << ' ' << y;
    }
    scene.state.angles.yaw = 0; // wires show from behind too
    EXPECT_EQ(find(157, 130, false), "back");
}

} // namespace
} // namespace korvane::test
