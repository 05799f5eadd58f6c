#include "render/planes/PlaneView.h"

#include "render/drags/PlaneDrag.h"
#include "render/picture/LineDrawing.h"
#include "render/planes/MeshEdges.h"
#include "render/scene/StartCamera.h"
#include "support/Scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace korvane::test {
namespace {

/// A frame with a square of half side 1 at z = 0, at a place.
FrameRecord squareAt(float x, float y, float z) {
    FrameRecord frame;
    frame.HasMesh = true;
    addSquare(frame.Mesh, 1, 0);
    frame.Matrix[12] = x;
    frame.Matrix[13] = y;
    frame.Matrix[14] = z;
    return frame;
}

/// Views of 100 x 80 pixels at ten pixels a unit, their centre at pixel (50, 40).
struct Board {
    Board() {
        document.PlaneScale = 10;
        document.CameraCenter = {1e9F, 1e9F, 1e9F}; // its mark out of sight
        for (const ViewPlane plane : viewPlanes) {
            view(plane).resize(100, 80);
        }
    }
    void draw(bool dots = false) {
        for (const ViewPlane plane : viewPlanes) {
            view(plane).draw(document, dots);
        }
    }
    BitmapPixel at(ViewPlane plane, std::int32_t x, std::int32_t y) {
        return view(plane).bitmap().at(x, y);
    }
    std::size_t count(ViewPlane plane, BitmapPixel color) {
        const Bitmap& bitmap = view(plane).bitmap();
        return bitmap.pixelCount() - countOtherThan(imageOf(bitmap), color);
    }

    ModelDocument document;
    [[nodiscard]] PlaneView& view(ViewPlane plane) {
        return views[static_cast<std::size_t>(plane)];
    }

    std::array<PlaneView, planeCount> views = {PlaneView(ViewPlane::XY), PlaneView(ViewPlane::XZ),
                                               PlaneView(ViewPlane::ZY)};
    const PlaneColors colors;
};

TEST(PlaneView, FramesShowWhereTheirWorldMatrixPutsThem) {
    Board board;
    board.document.Root.Children.push_back(squareAt(1, 2, 3));
    board.document.Root.Matrix[0] = 2; // twice as wide
    board.draw();
    const BitmapPixel line = board.colors.frames.unselected;
    // x from 0 to 4 to the left, y from 1 to 3 upward, z 3
    const std::tuple<ViewPlane, int, int, int, int> boxes[] = {{ViewPlane::XY, 10, 50, 10, 30},
                                                               {ViewPlane::XZ, 10, 50, 10, 10},
                                                               {ViewPlane::ZY, 80, 80, 10, 30}};
    for (const auto& [plane, left, right, top, bottom] : boxes) {
        EXPECT_EQ(board.at(plane, left, top), line);
        EXPECT_EQ(board.at(plane, right, top), line);
        EXPECT_EQ(board.at(plane, left, bottom), line);
        EXPECT_EQ(board.at(plane, right, bottom), line);
        const auto width = static_cast<std::size_t>(right - left);
        const auto height = static_cast<std::size_t>(bottom - top);
        // seen from the edge it is a line
        const std::size_t pixels =
            width == 0 || height == 0 ? width + height + 1 : 2 * (width + height);
        EXPECT_EQ(board.count(plane, line), pixels);
    }
}

TEST(PlaneView, ColoursTellTheSelectionAndCanBeReplaced) {
    Board board;
    FrameRecord parent = squareAt(0, 0, 0);
    parent.Children.push_back(squareAt(2.5F, 0, 0));
    board.document.Root.Children = {squareAt(-2.5F, 0, 0), parent};
    board.document.markSelection(FramePath(std::vector<std::int32_t>{2}));
    const auto shown = [&] {
        board.draw();
        return std::array{board.at(ViewPlane::XY, 0, 79),  board.at(ViewPlane::XY, 75, 30),
                          board.at(ViewPlane::XY, 50, 30), board.at(ViewPlane::XY, 25, 30),
                          board.at(ViewPlane::XY, 50, 5),  board.at(ViewPlane::XY, 50, 36)};
    };
    EXPECT_EQ(shown(), (std::array{0xffffffffU, 0xff0000ffU, 0xffff0000U, 0xff00ff00U, 0xff008080U,
                                   0xffffff00U}));
    PlaneColors colors;
    colors.frames = {1, 2, 3, 4};
    colors.worldAxes = 5;
    colors.objectAxes = 6;
    for (PlaneView& view : board.views) {
        view.setColors(colors);
    }
    EXPECT_EQ(shown(), (std::array{1U, 4U, 2U, 3U, 5U, 6U}));
}

TEST(PlaneView, MarksShowWorldOriginFrameOriginAndCameraCentre) {
    Board board;
    board.document.Root.Children.push_back(squareAt(2, 1, -1));
    board.document.Root.Children[0].HasMesh = false; // would cover its mark
    board.document.markSelection(FramePath(std::vector<std::int32_t>{1}));
    board.document.PanVector = {1, -1, 2};
    board.document.CameraCenter = {-2, 2, -1};
    board.draw();
    const auto axes = [&](ViewPlane plane, std::int32_t x, std::int32_t y) {
        return board.at(plane, x, 0) == board.colors.worldAxes &&
               board.at(plane, x, 79) == board.colors.worldAxes &&
               board.at(plane, 0, y) == board.colors.worldAxes &&
               board.at(plane, 99, y) == board.colors.worldAxes;
    };
    EXPECT_TRUE(axes(ViewPlane::XY, 40, 50));
    EXPECT_TRUE(axes(ViewPlane::XZ, 40, 20));
    EXPECT_TRUE(axes(ViewPlane::ZY, 70, 50));
    const auto marked = [&](ViewPlane plane, std::int32_t x, std::int32_t y) {
        return board.at(plane, x - 4, y) == board.colors.objectAxes &&
               board.at(plane, x, y + 4) == board.colors.objectAxes;
    };
    EXPECT_TRUE(marked(ViewPlane::XY, 20, 40));
    EXPECT_TRUE(marked(ViewPlane::XZ, 20, 30));
    EXPECT_TRUE(marked(ViewPlane::ZY, 60, 40));
    const auto crossed = [&](ViewPlane plane, std::int32_t x, std::int32_t y) {
        return board.at(plane, x - 4, y) == board.colors.cameraCentre &&
               board.at(plane, x, y + 4) == board.colors.cameraCentre &&
               board.at(plane, x, y) == board.colors.cameraCentre;
    };
    EXPECT_TRUE(crossed(ViewPlane::XY, 60, 30));
    EXPECT_TRUE(crossed(ViewPlane::XZ, 60, 30));
    EXPECT_TRUE(crossed(ViewPlane::ZY, 60, 30));
}

TEST(PlaneView, HidingAMeshKeepsTheMarkAndHidingAFrameNothing) {
    Board board;
    board.document.Root.Children.push_back(squareAt(0, 0, 0));
    FrameRecord& frame = board.document.Root.Children[0];
    frame.Children.push_back(squareAt(3, 0, 0));
    board.document.markSelection(FramePath(std::vector<std::int32_t>{1}));
    const auto drawn = [&](bool first, bool third) {
        frame.ViewFlags = {first, true, third};
        board.draw();
        return std::tuple(board.count(ViewPlane::XY, board.colors.objectAxes) > 0,
                          board.count(ViewPlane::XY, board.colors.frames.selected) > 0,
                          board.count(ViewPlane::XY, board.colors.frames.selectedChild) > 0);
    };
    EXPECT_EQ(drawn(true, true), std::tuple(true, true, true));
    EXPECT_EQ(drawn(true, false), std::tuple(true, false, true));
    EXPECT_EQ(drawn(false, true), std::tuple(false, false, true));
    board.document.markSelection(FramePath(std::vector<std::int32_t>{7}));
    EXPECT_EQ(drawn(true, true), std::tuple(false, false, false)) << "nothing is selected";
}

TEST(PlaneView, EdgesThatFacesShareAreDrawnOnce) {
    MeshRecord mesh;
    mesh.Vertices.resize(6);
    addFace(mesh, {0, 1, 2, 3});
    addFace(mesh, {2, 1, 4});
    addFace(mesh, {1, 4, 2});
    addFace(mesh, {5, 5});
    addFace(mesh, {0, 6, 1}); // leads nowhere
    addFace(mesh, {});
    const std::vector<MeshEdge> edges = meshEdges(mesh);
    const std::vector<MeshEdge> expected = {{0, 1}, {0, 3}, {1, 2}, {1, 4}, {2, 3}, {2, 4}, {5, 5}};
    EXPECT_EQ(edges, expected);
    EXPECT_TRUE(meshEdges({}).empty());
}

TEST(PlaneView, OnlyWhatMovedIsProjectedAnew) {
    Board board;
    constexpr std::size_t frames = 50;
    for (std::size_t i = 0; i < frames; ++i) {
        board.document.Root.Children.push_back(squareAt(static_cast<float>(i), 0, 0));
    }
    board.document.Root.Children[7].Children.push_back(squareAt(0, 1, 0));
    board.document.markSelection(FramePath(std::vector<std::int32_t>{8}));
    const auto projected = [&] {
        board.draw();
        std::array<std::size_t, planeCount> counts{};
        for (const ViewPlane plane : viewPlanes) {
            counts[static_cast<std::size_t>(plane)] = board.view(plane).projectedFrames();
        }
        return counts;
    };
    using Counts = std::array<std::size_t, planeCount>;
    EXPECT_EQ(projected(), (Counts{frames + 1, frames + 1, frames + 1}));
    EXPECT_EQ(projected(), (Counts{0, 0, 0}));
    board.document.Tool = ViewTool::MoveFrame;
    PlaneDrag mouse;
    const auto mapping = [&] { return board.view(ViewPlane::XY).mapping(board.document); };
    mouse.begin({DragButton::Left, 10, 10}, mapping(), board.document);
    for (float x = 11; x < 15; ++x) {
        mouse.update({{}, x, 10}, mapping(), board.document);
        EXPECT_EQ(projected(), (Counts{2, 2, 2})) << "the frame and its child";
    }
    mouse.end({{}, 14, 10}, mapping(), board.document);
    EXPECT_EQ(projected(), (Counts{0, 0, 0}));
    // a pan along y is none in the view that does not show y
    board.document.PanVector.y += 1;
    EXPECT_EQ(projected(), (Counts{frames + 1, 0, frames + 1}));
    // a mesh given other faces or vertices
    MeshRecord& mesh = board.document.Root.Children[3].Mesh;
    addFace(mesh, {0, 2, 3});
    EXPECT_EQ(projected(), (Counts{1, 1, 1}));
    mesh.Vertices[0].x = -3;
    mesh.ListRevision.shapeChanged();
    EXPECT_EQ(projected(), (Counts{1, 1, 1}));
}

TEST(PlaneView, DotsAreTheEndsOfTheLines) {
    Board board;
    board.document.Root.Children.push_back(squareAt(0, 2, 0));
    board.draw(true);
    EXPECT_EQ(board.count(ViewPlane::XY, board.colors.frames.unselected), 4U);
}

TEST(PlaneView, TheSelectedFrameShowsOnceMoreOverOthersAndChangesNoPicture) {
    Board board;
    for (int i = 0; i < 2; ++i) {
        board.document.Root.Children.push_back(squareAt(0, 2, 0));
    }
    board.document.Root.Children[1].Matrix[12] = 1.0F; // its lines cross those of the first
    PlaneView& view = board.view(ViewPlane::XY);
    board.draw();
    EXPECT_TRUE(view.selectionOverlay(board.document).isNull()) << "nothing is selected";
    board.document.CameraCenter = {0, 1, 0};
    board.document.markSelection(FramePath(std::vector<std::int32_t>{1}));
    board.draw();
    const QImage before = imageOf(view.bitmap()).copy();
    const QImage overlay = view.selectionOverlay(board.document);
    EXPECT_EQ(imageOf(view.bitmap()), before);
    const auto pixel = [&](int x, int y) { return overlay.pixel(x, y); };
    EXPECT_EQ(before.pixel(45, 30), board.colors.frames.unselected);
    EXPECT_EQ(pixel(45, 30), board.colors.frames.selected);
    EXPECT_EQ(pixel(35, 30), 0U) << "nothing of the other frame";
    EXPECT_EQ(pixel(50, 16), board.colors.objectAxes);
    EXPECT_EQ(pixel(50, 30), board.colors.cameraCentre) << "stays on top";
    board.document.Root.Children[0].ViewFlags[2] = false;
    board.draw();
    EXPECT_EQ(pixel(45, 30), board.colors.frames.selected) << "until it is asked for again";
    EXPECT_EQ(view.selectionOverlay(board.document).pixel(45, 30), 0U) << "the mesh is hidden";
}

TEST(PlaneView, OddSizesAndNumbersAreSafe) {
    Board board;
    const float huge = std::numeric_limits<float>::max();
    const float infinity = std::numeric_limits<float>::infinity();
    FrameRecord wild = squareAt(0, 0, 0);
    wild.Mesh.Vertices = {{huge, huge, huge},    {-huge, 0, 0},     {infinity, 0, 0},
                          {std::nanf(""), 0, 0}, {1e12F, 1e12F, 0}, {-1e12F, -1e12F, 0}};
    wild.Mesh.Faces.clear();
    addFace(wild.Mesh, {0, 1, 2, 3});
    addFace(wild.Mesh, {4, 5});
    board.document.Root.Children.push_back(wild);
    board.document.Root.Children.push_back(squareAt(huge, huge, huge));
    board.document.Root.Children.push_back(squareAt(0, 0, 0));
    board.document.markSelection(FramePath(std::vector<std::int32_t>{2}));
    board.draw();
    // from corner to corner, wherever its ends are
    EXPECT_EQ(board.at(ViewPlane::XY, 60, 50), board.colors.frames.unselected);
    EXPECT_EQ(board.at(ViewPlane::XY, 80, 70), board.colors.frames.unselected);
    board.view(ViewPlane::XY).resize(0, -5);
    board.draw();
    EXPECT_EQ(board.view(ViewPlane::XY).bitmap().pixelCount(), 1U);
}

TEST(PlaneView, AModelJustOpenedIsSeenWholeAndCentred) {
    const std::pair<std::int32_t, std::int32_t> sizes[] = {{400, 300}, {120, 500}, {40, 40}};
    for (const auto& [width, height] : sizes) {
        Board board;
        board.document.Root.Children.push_back(squareAt(30, -20, 4));
        board.document.Root.Children.push_back(squareAt(50, 9, -12));
        startPlanes(board.document, width, height);
        double fullest = 0;
        for (const ViewPlane plane : viewPlanes) {
            board.view(plane).resize(width, height);
            const PlaneMapping mapping = board.view(plane).mapping(board.document);
            const PlanePoint low = toPlane(plane, {29, -21, -12});
            const PlanePoint high = toPlane(plane, {51, 10, 4});
            const double left = mapping.screenX(low.u);
            const double right = mapping.screenX(high.u);
            const double bottom = mapping.screenY(low.v);
            const double top = mapping.screenY(high.v);
            EXPECT_NEAR(left + right, 2 * (width / 2), 1e-3);
            EXPECT_NEAR(bottom + top, 2 * (height / 2), 1e-3);
            fullest = std::max(
                {fullest, std::abs(right - left) / width, std::abs(bottom - top) / height});
        }
        EXPECT_NEAR(fullest, 0.9, 1e-4) << width << ' ' << height;
    }
    ModelDocument document;
    startPlanes(document, 300, 200);
    EXPECT_EQ(document.PlaneScale, ModelDocument().PlaneScale);
    document.Root = squareAt(0, 0, 0);
    const std::pair<float, float> extremes[] = {{1e-7F, 9e8F}, {1e9F, 9e-8F}};
    for (const auto& [factor, scale] : extremes) {
        document.Root.Matrix[0] = document.Root.Matrix[5] = factor;
        startPlanes(document, 300, 200);
        EXPECT_FLOAT_EQ(document.PlaneScale, scale);
    }
}

} // namespace
} // namespace korvane::test
