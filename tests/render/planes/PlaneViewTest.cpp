#include "render/planes/PlaneView.h"

#include "render/planes/MeshEdges.h"
#include "render/scene/StartCamera.h"
#include "support/Scene.h"

#include <limits>

namespace korvane::test {
namespace {

/// A frame at a place, with a square of half side 1.
FrameRecord squareAt(float x, float y, float z) {
    FrameRecord frame;
    frame.HasMesh = true;
    addSquare(frame.Mesh, 1, 0);
    frame.Matrix[12] = x;
    frame.Matrix[13] = y;
    frame.Matrix[14] = z;
    return frame;
}

/// Views of 100 x 80 pixels at ten pixels a unit, centred at pixel (50, 40).
class PlaneViewTest : public testing::Test {
  protected:
    PlaneViewTest() {
        document.PlaneScale = 10;
        document.CameraCenter = {1e9F, 1e9F, 1e9F}; // keeps its mark out of sight
        for (const ViewPlane plane : viewPlanes) {
            view(plane).resize(100, 80);
        }
    }
    void draw(bool dots = false) {
        for (const ViewPlane plane : viewPlanes) {
            view(plane).draw(document, dots);
        }
    }
    void select(std::int32_t number) {
        document.markSelection(FramePath(std::vector<std::int32_t>{number}));
    }
    BitmapPixel at(ViewPlane plane, std::int32_t x, std::int32_t y) {
        return view(plane).bitmap().at(x, y);
    }
    std::size_t count(ViewPlane plane, BitmapPixel color) {
        const Bitmap& bitmap = view(plane).bitmap();
        return bitmap.pixelCount() - countOtherThan(imageOf(bitmap), color);
    }

    ModelDocument document;
    std::vector<FrameRecord>& frames = document.Root.Children;
    [[nodiscard]] PlaneView& view(ViewPlane plane) {
        return views[static_cast<std::size_t>(plane)];
    }
    std::array<PlaneView, planeCount> views = {PlaneView(ViewPlane::XY), PlaneView(ViewPlane::XZ),
                                               PlaneView(ViewPlane::ZY)};
    const PlaneColors colors;
};

TEST_F(PlaneViewTest, FramesShowWhereTheirWorldMatrixPutsThem) {
    frames.push_back(squareAt(1, 2, 3));
    document.Root.Matrix[0] = 2; // twice as wide
    draw();
    const BitmapPixel line = colors.frames.unselected;
    const struct {
        ViewPlane plane;
        int left, right, top, bottom;
        std::size_t pixels; ///< from the side, the square is a line
    } rows[] = {{ViewPlane::XY, 10, 50, 10, 30, 120},
                {ViewPlane::XZ, 10, 50, 10, 10, 41},
                {ViewPlane::ZY, 80, 80, 10, 30, 21}};
    for (const auto& row : rows) {
        EXPECT_EQ(at(row.plane, row.left, row.top), line);
        EXPECT_EQ(at(row.plane, row.right, row.bottom), line);
        EXPECT_EQ(count(row.plane, line), row.pixels);
    }
    draw(true);
    EXPECT_EQ(count(ViewPlane::XY, line), 4U) << "the ends of the lines";
    addFace(frames[0].Mesh, {0, 2});
    draw();
    EXPECT_EQ(at(ViewPlane::XY, 30, 20), line) << "a new line";
}

TEST_F(PlaneViewTest, ColoursShowTheSelectionAndCanBeReplaced) {
    FrameRecord parent = squareAt(0, 0, 0);
    parent.Children.push_back(squareAt(2.5F, 0, 0));
    frames = {squareAt(-2.5F, 0, 0), parent};
    select(2);
    const auto shown = [&] {
        draw();
        const auto pixel = [&](int x, int y) { return at(ViewPlane::XY, x, y); };
        return std::vector{pixel(0, 79),  pixel(50, 30), pixel(25, 30),
                           pixel(75, 30), pixel(50, 5),  pixel(50, 36)};
    };
    EXPECT_EQ(shown(), (std::vector{0xffffffffU, 0xffff0000U, 0xff00ff00U, 0xff0000ffU, 0xff008080U,
                                    0xffffff00U}));
    PlaneColors others;
    others.frames = {1, 2, 3, 4};
    others.worldAxes = 5;
    others.objectAxes = 6;
    for (PlaneView& each : views) {
        each.setColors(others);
    }
    EXPECT_EQ(shown(), (std::vector{1U, 2U, 3U, 4U, 5U, 6U}));
}

TEST_F(PlaneViewTest, MarksShowWorldOriginFrameOriginAndCameraCentre) {
    frames.push_back(squareAt(2, 1, -1));
    frames[0].HasMesh = false; // would cover its mark
    select(1);
    document.PanVector = {1, -1, 2};
    document.CameraCenter = {-2, 2, -1};
    draw();
    const struct {
        ViewPlane plane;
        PixelPoint world, frame, camera;
    } rows[] = {{ViewPlane::XY, {40, 50}, {20, 40}, {60, 30}},
                {ViewPlane::XZ, {40, 20}, {20, 30}, {60, 30}},
                {ViewPlane::ZY, {70, 50}, {60, 40}, {60, 30}}};
    for (const auto& [plane, world, frame, camera] : rows) {
        for (const auto& [x, y] : {std::pair{0, 0}, {99, 79}}) {
            EXPECT_EQ(at(plane, world.x, y), colors.worldAxes);
            EXPECT_EQ(at(plane, x, world.y), colors.worldAxes);
        }
        for (const auto& [mark, color] :
             {std::pair{frame, colors.objectAxes}, {camera, colors.cameraCentre}}) {
            EXPECT_EQ(at(plane, mark.x - 4, mark.y), color);
            EXPECT_EQ(at(plane, mark.x, mark.y + 4), color);
        }
        EXPECT_EQ(at(plane, camera.x, camera.y), colors.cameraCentre);
    }
}

TEST_F(PlaneViewTest, HidingAMeshKeepsTheMarkAndHidingAFrameDoesNot) {
    frames.push_back(squareAt(0, 0, 0));
    frames[0].Children.push_back(squareAt(3, 0, 0));
    select(1);
    const auto drawn = [&](bool first, bool third) {
        frames[0].ViewFlags = {first, true, third};
        draw();
        return std::tuple(count(ViewPlane::XY, colors.objectAxes) > 0,
                          count(ViewPlane::XY, colors.frames.selected) > 0,
                          count(ViewPlane::XY, colors.frames.selectedChild) > 0);
    };
    EXPECT_EQ(drawn(true, true), std::tuple(true, true, true));
    EXPECT_EQ(drawn(true, false), std::tuple(true, false, true));
    EXPECT_EQ(drawn(false, true), std::tuple(false, false, true));
    select(7);
    EXPECT_EQ(drawn(true, true), std::tuple(false, false, false)) << "nothing is selected";
}

TEST_F(PlaneViewTest, EdgesThatFacesShareAreDrawnOnce) {
    MeshRecord mesh;
    mesh.Vertices.resize(6);
    // the fifth leads nowhere
    for (const auto& corners :
         {std::vector<std::uint32_t>{0, 1, 2, 3}, {2, 1, 4}, {1, 4, 2}, {5, 5}, {0, 6, 1}, {}}) {
        addFace(mesh, corners);
    }
    const std::vector<MeshEdge> expected = {{0, 1}, {0, 3}, {1, 2}, {1, 4}, {2, 3}, {2, 4}, {5, 5}};
    EXPECT_EQ(meshEdges(mesh), expected);
    EXPECT_TRUE(meshEdges({}).empty());
}

TEST_F(PlaneViewTest, OnlyWhatMovedIsProjectedAnew) {
    constexpr std::size_t all = 51;
    frames.assign(all - 1, squareAt(0, 0, 0));
    frames[7].Children.push_back(squareAt(0, 1, 0));
    using Counts = std::array<std::size_t, 3>;
    const auto projected = [&] {
        draw();
        const auto count = [&](ViewPlane plane) { return view(plane).projectedFrames(); };
        return Counts{count(ViewPlane::XY), count(ViewPlane::XZ), count(ViewPlane::ZY)};
    };
    EXPECT_EQ(projected(), (Counts{all, all, all}));
    EXPECT_EQ(projected(), (Counts{0, 0, 0}));
    frames[7].Matrix[13] = 1;
    EXPECT_EQ(projected(), (Counts{2, 2, 2})) << "the frame and its child";
    document.PanVector.y += 1;
    EXPECT_EQ(projected(), (Counts{all, 0, all})) << "y does not show in the second view";
    frames[3].Mesh.ListRevision.shapeChanged();
    EXPECT_EQ(projected(), (Counts{1, 1, 1}));
}

TEST_F(PlaneViewTest, TheOverlayShowsTheSelectedFrameAndLeavesThePictureAlone) {
    frames.assign(2, squareAt(0, 2, 0));
    frames[1].Matrix[12] = 1.0F; // its lines cross those of the first
    PlaneView& xy = view(ViewPlane::XY);
    draw();
    EXPECT_TRUE(xy.selectionOverlay(document).isNull()) << "nothing is selected";
    document.CameraCenter = {0, 1, 0};
    select(1);
    draw();
    const QImage before = imageOf(xy.bitmap()).copy();
    const QImage overlay = xy.selectionOverlay(document);
    EXPECT_EQ(imageOf(xy.bitmap()), before);
    EXPECT_EQ(before.pixel(45, 30), colors.frames.unselected);
    EXPECT_EQ(overlay.pixel(45, 30), colors.frames.selected);
    EXPECT_EQ(overlay.pixel(35, 30), 0U) << "not the other frame";
    EXPECT_EQ(overlay.pixel(50, 16), colors.objectAxes);
    EXPECT_EQ(overlay.pixel(50, 17), 0xff000000U) << "a dark rim around a bright mark";
    EXPECT_EQ(overlay.pixel(50, 14), 0xff000000U);
    xy.setColors({.objectAxes = 0xff000080U});
    EXPECT_EQ(xy.selectionOverlay(document).pixel(50, 17), 0xffffffffU) << "and a bright one";
    xy.setColors(colors);
    EXPECT_EQ(overlay.pixel(50, 30), colors.cameraCentre) << "stays on top";
    frames[0].ViewFlags[2] = false;
    draw();
    EXPECT_EQ(overlay.pixel(45, 30), colors.frames.selected) << "until the next overlay";
    EXPECT_EQ(xy.selectionOverlay(document).pixel(45, 30), 0U) << "the mesh is hidden";
}

TEST_F(PlaneViewTest, OddSizesAndNumbersAreSafe) {
    const float huge = std::numeric_limits<float>::max();
    const float infinity = std::numeric_limits<float>::infinity();
    FrameRecord wild = squareAt(0, 0, 0);
    wild.Mesh.Vertices = {{huge, huge, huge},    {-huge, 0, 0},     {infinity, 0, 0},
                          {std::nanf(""), 0, 0}, {1e12F, 1e12F, 0}, {-1e12F, -1e12F, 0}};
    addFace(wild.Mesh, {4, 5});
    frames = {wild, squareAt(huge, huge, huge), squareAt(0, 0, 0)};
    select(2);
    draw();
    // from corner to corner, however far its ends
    EXPECT_EQ(at(ViewPlane::XY, 60, 50), colors.frames.unselected);
    EXPECT_EQ(at(ViewPlane::XY, 80, 70), colors.frames.unselected);
    view(ViewPlane::XY).resize(0, -5);
    draw();
    EXPECT_EQ(view(ViewPlane::XY).bitmap().pixelCount(), 1U);
}

TEST_F(PlaneViewTest, ANewlyOpenedModelIsSeenWholeAndCentred) {
    const struct {
        float z;
        std::int32_t width, height;
        float scale; ///< nine tenths of the view for the side that fills most of it
    } rows[] = {{-12, 279, 310, 9}, {-12, 220, 400, 9}, {-32, 400, 300, 7.5F}, {-32, 120, 500, 3}};
    for (const auto& [z, width, height, scale] : rows) {
        frames = {squareAt(30, -20, 4), squareAt(50, 9, z)};
        startPlanes(document, width, height);
        EXPECT_FLOAT_EQ(document.PlaneScale, scale) << z << ' ' << width;
        EXPECT_EQ(document.PanVector, (Vec3{-40, 5.5F, -(4 + z) / 2})) << z;
    }
    for (const auto& [factor, scale] : {std::pair{1e-7F, 9e8F}, {1e9F, 9e-8F}}) {
        frames = {squareAt(0, 0, 0)};
        frames[0].Matrix[0] = frames[0].Matrix[5] = factor;
        startPlanes(document, 300, 200);
        EXPECT_FLOAT_EQ(document.PlaneScale, scale);
    }
    frames.clear();
    startPlanes(document, 300, 200);
    EXPECT_EQ(document.PlaneScale, ModelDocument().PlaneScale);
    document.Root.SelectState = SelectState::Other;
    document.PanVector = {1, 2, 3};
    startPlanes(document, 300, 200, Seen::Selection);
    EXPECT_EQ(document.PanVector, (Vec3{1, 2, 3})) << "there is no selection to show";
}

} // namespace
} // namespace korvane::test
