#include "edit/materials/TexCoordView.h"

#include "edit/materials/TexCoordDrag.h"
#include "model/records/MeshRecord.h"
#include "support/Scene.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace korvane {
namespace {

constexpr BitmapPixel selectedColor = 0xffff00ffU;
constexpr BitmapPixel inactiveColor = 0xff00ffffU;
constexpr BitmapPixel background = 0xff123456U;
constexpr TexCoordColors colors = {selectedColor, inactiveColor, background};

void addTexCoords(MeshRecord& mesh, std::initializer_list<std::uint32_t> numbers) {
    mesh.TexCoordFaces.push_back(std::vector<std::uint32_t>(numbers));
}

/// Two faces of texture coordinates; the second one shares two with the first.
MeshRecord twoFaces() {
    MeshRecord mesh;
    mesh.HasTexCoords = true;
    mesh.TexCoords = {{0.25F, 0.75F}, {0.75F, 0.75F}, {0.75F, 0.25F}, {0.25F, 0.25F}};
    test::addFace(mesh, {0, 1, 2});
    test::addFace(mesh, {0, 2, 3});
    addTexCoords(mesh, {0, 1, 2});
    addTexCoords(mesh, {0, 2, 3});
    return mesh;
}

/// A texture whose pixels encode their place: red is the column, green the row.
TextureImage mapTexture(std::int32_t width, std::int32_t height) {
    TextureImage image;
    image.width = width;
    image.height = height;
    image.pixels.clear();
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) {
            image.pixels.push_back({static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 7,
                                    static_cast<std::uint8_t>(x + y)});
        }
    }
    return image;
}

/// Releases the button.
MovedTexCoords release(TexCoordDrag& drag, const DragInput& input, const TexCoordView& view,
                       MeshRecord& mesh) {
    drag.update(input, view, mesh);
    MovedTexCoords moved = drag.moved(mesh);
    drag.end();
    return moved;
}

TexCoordView viewOf(std::int32_t width, std::int32_t height, std::int32_t zoom = 1,
                    std::int32_t offsetX = 0, std::int32_t offsetY = 0) {
    TexCoordView view;
    view.setViewSize(256, 256);
    view.setTextureSize(width, height);
    while (view.zoom() < zoom && view.zoomIn()) {
    }
    view.setOffsets(offsetX, offsetY);
    return view;
}

DragInput left(float x, float y) {
    return {DragButton::Left, x, y};
}

TEST(TexCoordView, ZoomStaysWithinOneAndEight) {
    TexCoordView view = viewOf(512, 512);
    EXPECT_FALSE(view.zoomOut());
    for (const std::int32_t zoom : {2, 4, 8}) {
        EXPECT_TRUE(view.zoomIn());
        EXPECT_EQ(view.zoom(), zoom);
    }
    EXPECT_FALSE(view.zoomIn());
    EXPECT_TRUE(view.zoomOut());
    EXPECT_EQ(view.zoom(), 4);
}

TEST(TexCoordView, ScrollRanges) {
    const struct {
        std::int32_t width, height, zoom;
        ScrollRanges ranges;
    } rows[] = {{512, 512, 1, {256, 256}},
                {512, 512, 2, {384, 384}},
                {256, 256, 1, {}},
                {257, 3, 1, {1, std::nullopt}},
                {33, 31, 8, {1, std::nullopt}},
                {1, 300, 4, {std::nullopt, 236}},
                {1 << 30, 1, 8, {(1 << 30) - 32, std::nullopt}},
                {1, 1, 8, {}}};
    for (const auto& [width, height, zoom, ranges] : rows) {
        EXPECT_EQ(viewOf(width, height, zoom).scrollcheck(), ranges) << width << ' ' << zoom;
    }
    TexCoordView odd = viewOf(300, 300, 2);
    odd.setViewSize(383, 599); // 191.5 and 299.5 pixels of the texture
    EXPECT_EQ(odd.scrollcheck(), (ScrollRanges{108, 0})) << "truncated, not rounded";
}

TEST(TexCoordView, OffsetsComeBackIntoRange) {
    TexCoordView view = viewOf(512, 300, 8, 480, 268);
    const auto offsets = [&view] { return std::pair(view.offsetX(), view.offsetY()); };
    EXPECT_EQ(offsets(), std::pair(480, 268));
    view.zoomOut();
    view.scrollcheck();
    EXPECT_EQ(offsets(), std::pair(448, 236));
    view.setTextureSize(512, 20);
    view.scrollcheck();
    EXPECT_EQ(offsets(), std::pair(448, 0)) << "no scroll bar in that direction";
    view.setOffsets(-5, 3);
    EXPECT_EQ(offsets(), std::pair(0, 0));
}

TEST(TexCoordView, TheWheelZoomsAboutThePointer) {
    const struct {
        std::int32_t zoom;
        std::int32_t offset;
        float place;
        bool in;
        std::int32_t then; ///< the resulting offset
    } rows[] = {
        {1, 100, 0.0F, true, 100},  {1, 100, 128.0F, true, 164}, {2, 164, 128.0F, false, 100},
        {4, 20, 200.0F, true, 45},  {1, 0, 255.0F, true, 128},   {2, 0, 255.0F, false, 0},
        {1, 256, 10.0F, true, 261}, {8, 77, 50.0F, true, 77},    {1, 77, 50.0F, false, 77}};
    for (const auto& [zoom, offset, place, in, then] : rows) {
        TexCoordView view = viewOf(512, 512, zoom, offset, 0);
        const bool could = view.zoomAbout(place, 0.0F, in);
        EXPECT_EQ(could, in ? zoom < 8 : zoom > 1);
        EXPECT_EQ(view.offsetX(), then) << zoom << ' ' << place;
        EXPECT_EQ(view.offsetY(), 0);
    }
}

TEST(TexCoordView, RevealsTheSelectionByScrollingAsLittleAsPossible) {
    const MeshRecord mesh = twoFaces(); // at 128 and 384 of 512 pixels
    const struct {
        std::int32_t zoom;
        std::int32_t x;
        std::int32_t y;
        FacePart part;
        std::int32_t thenX;
        std::int32_t thenY;
    } rows[] = {{2, 0, 0, {0, 1}, 1, 1},       {2, 200, 300, {0, 1}, 128, 128},
                {2, 100, 90, {0, 1}, 100, 90}, {2, 0, 0, {0, 0}, 128, 128},
                {1, 0, 0, {0, 0}, 128, 128},   {2, 5, 6, {7, 0}, 5, 6},
                {2, 5, 6, {0, 9}, 5, 6}};
    for (const auto& [zoom, x, y, part, thenX, thenY] : rows) {
        TexCoordView view = viewOf(512, 512, zoom, x, y);
        EXPECT_EQ(view.reveal(mesh, part), x != thenX || y != thenY);
        EXPECT_EQ(std::pair(view.offsetX(), view.offsetY()), std::pair(thenX, thenY))
            << x << ' ' << part.face << ' ' << part.vertex;
    }
    const TexCoordView view = viewOf(512, 512, 2, 28, 0);
    EXPECT_EQ(view.selectedVertex(mesh, FacePart{0, 1}).value().u, 200.0F);
    EXPECT_FALSE(view.selectedVertex(mesh, FacePart{0, 0}));
    EXPECT_FALSE(view.selectedVertex(mesh, FacePart{0, 9}));
}

TEST(TexCoordView, DrawsTheTextureZoomedAndScrolled) {
    const TextureImage texture = mapTexture(200, 50);
    Bitmap bitmap;
    for (const std::int32_t zoom : {1, 2, 4, 8}) {
        const TexCoordView view = viewOf(200, 50, zoom, 150, 10);
        view.draw(bitmap, texture, MeshRecord(), std::nullopt, colors);
        ASSERT_EQ(bitmap.width(), 256);
        ASSERT_EQ(bitmap.height(), 256);
        for (const std::int32_t at : {0, 1, 7, 100, 255}) {
            const std::int32_t column = view.offsetX() + at / zoom;
            const std::int32_t row = view.offsetY() + 3 / zoom;
            const auto pixel = 0xff000007U | static_cast<std::uint32_t>(column) << 16U |
                               static_cast<std::uint32_t>(row) << 8U;
            EXPECT_EQ(bitmap.at(at, 3), column < 200 ? pixel : background) << zoom << ' ' << at;
            EXPECT_EQ(bitmap.at(3, at) == background, view.offsetY() + at / zoom >= 50) << at;
        }
    }
}

TEST(TexCoordView, OutlinesFacesAndTheSelectedOneOverThem) {
    const MeshRecord mesh = twoFaces();
    const TextureImage texture = mapTexture(100, 60); // not square: (0.25, 0.75) is (25, 15)
    const TexCoordView view = viewOf(100, 60);
    Bitmap bitmap;
    view.draw(bitmap, texture, mesh, std::nullopt, colors);
    EXPECT_EQ(bitmap.at(50, 15), inactiveColor) << "the upper edge of the first face";
    EXPECT_EQ(bitmap.at(75, 30), inactiveColor);
    EXPECT_EQ(bitmap.at(25, 30), inactiveColor) << "the closing edge of the second face";
    EXPECT_EQ(countOtherThan(imageOf(bitmap), selectedColor), bitmap.pixelCount());
    view.draw(bitmap, texture, mesh, FacePart{1, 3}, colors);
    EXPECT_EQ(bitmap.at(50, 15), inactiveColor);
    EXPECT_EQ(bitmap.at(25, 30), selectedColor);
    EXPECT_EQ(bitmap.at(50, 30), selectedColor) << "an edge of both";
    for (const auto& [x, y] : {std::pair(25, 15), std::pair(75, 45), std::pair(25, 45)}) {
        EXPECT_EQ(bitmap.at(x - 2, y), selectedColor);
        EXPECT_EQ(bitmap.at(x + 2, y), selectedColor);
        EXPECT_EQ(bitmap.at(x, y - 2), selectedColor);
        EXPECT_EQ(bitmap.at(x, y + 2), selectedColor);
    }
    EXPECT_NE(bitmap.at(73, 15), selectedColor) << "no corner of the selected face";
    const TexCoordView near = viewOf(100, 60, 8, 20, 10);
    near.draw(bitmap, texture, mesh, FacePart{1, 0}, colors);
    EXPECT_EQ(bitmap.at(40, 40 + 100), selectedColor) << "(25 - 20) * 8, and below";
    EXPECT_EQ(bitmap.at(40 - 2, 40), selectedColor);
}

TEST(TexCoordView, TextsShowPixelsOfTheTexture) {
    const MeshRecord mesh = twoFaces();
    for (const std::int32_t zoom : {1, 4}) {
        const TexCoordView view = viewOf(301, 99, zoom, 40, 10);
        const TexCoordTexts texts =
            view.texts(mesh, FacePart{1, 0}); // 75.25, 225.75 and 24.75, 74.25
        EXPECT_EQ(texts.x, "X: (75, 225, 75)");
        EXPECT_EQ(texts.y, "Y: (24, 74, 74)");
    }
    MeshRecord wild = twoFaces();
    wild.TexCoords = {{-0.01F, 1.01F},
                      {1e30F, std::nanf("")},
                      {-1e30F, std::numeric_limits<float>::infinity()},
                      {}};
    const TexCoordTexts texts = viewOf(301, 99).texts(wild, FacePart{0, 0});
    EXPECT_EQ(texts.x, "X: (-3, 2147483647, -2147483648)");
    EXPECT_EQ(texts.y, "Y: (0, 0, -2147483648)");
    Bitmap bitmap;
    viewOf(301, 99).draw(bitmap, mapTexture(301, 99), wild, FacePart{0, 0}, colors); // it ends
}

TEST(TexCoordView, ShortListsShowAsFarAsTheyGo) {
    MeshRecord mesh = twoFaces();
    mesh.TexCoordFaces = PolygonList();
    addTexCoords(mesh, {0, 9});        // no third, and an invalid one
    test::addFace(mesh, {0, 1, 2, 3}); // a face without texture coordinates
    const TexCoordView view = viewOf(100, 100);
    EXPECT_EQ(view.texts(mesh, FacePart{0, 0}).x, "X: (25)");
    EXPECT_EQ(view.texts(mesh, FacePart{1, 0}).x, "X: ()");
    EXPECT_EQ(view.texts(mesh, FacePart{7, 0}).y, "Y: ()");
    Bitmap bitmap;
    view.draw(bitmap, mapTexture(100, 100), mesh, FacePart{1, 0}, colors);
    EXPECT_EQ(bitmap.at(25, 25), inactiveColor);
    EXPECT_EQ(countOtherThan(imageOf(bitmap), inactiveColor), bitmap.pixelCount() - 1);
    TexCoordDrag drag;
    EXPECT_FALSE(drag.begin(left(0, 0), viewOf(1, 1), mesh, {0, 0})) << "one pixel";
    EXPECT_FALSE(drag.begin(left(0, 0), viewOf(0, 0), mesh, {0, 0}));
    EXPECT_FALSE(drag.begin(left(0, 0), view, mesh, {1, 0}));
    EXPECT_FALSE(drag.begin(left(0, 0), view, mesh, {7, 0}));
    EXPECT_FALSE(drag.begin(left(0, 0), view, mesh, {0, 2})) << "leads nowhere";
    EXPECT_FALSE(drag.begin(left(0, 0), view, mesh, {0, 3})) << "has no number";
    EXPECT_TRUE(drag.begin(left(0, 0), view, mesh, {0, 0}));
    EXPECT_EQ(release(drag, left(10, 0), view, mesh).numbers, std::vector<std::int32_t>{0});
    mesh.HasTexCoords = false;
    EXPECT_FALSE(drag.begin(left(0, 0), view, mesh, {0, 0}));
    view.draw(bitmap, mapTexture(100, 100), mesh, std::nullopt, colors);
    EXPECT_EQ(countOtherThan(imageOf(bitmap), inactiveColor), bitmap.pixelCount());
}

TEST(TexCoordDrag, MovesAFaceWithTheMouse) {
    const std::array<std::int32_t, 3> cases[] = {{256, 256, 1}, {512, 512, 2}, {301, 99, 1},
                                                 {37, 641, 4},  {301, 99, 8},  {1, 2, 8},
                                                 {2, 1, 4}};
    for (const auto& [width, height, zoom] : cases) {
        const TexCoordView view = viewOf(width, height, zoom, 20, 30);
        MeshRecord mesh = twoFaces();
        TexCoordDrag drag;
        ASSERT_TRUE(drag.begin(left(100, 200), view, mesh, {0, 0}));
        // a tenth of the texture to the right and a twentieth down, with a detour
        const float dx = 0.1F * static_cast<float>(width * zoom);
        const float dy = 0.05F * static_cast<float>(height * zoom);
        EXPECT_TRUE(drag.update(left(-9000, 9000), view, mesh));
        EXPECT_TRUE(drag.update(left(100 + dx, 200 + dy), view, mesh));
        EXPECT_NEAR(mesh.TexCoords[0].u, 0.35F, 1e-5F);
        EXPECT_NEAR(mesh.TexCoords[0].v, 0.70F, 1e-5F) << "down is less";
        EXPECT_NEAR(mesh.TexCoords[2].u, 0.85F, 1e-5F);
        EXPECT_NEAR(mesh.TexCoords[2].v, 0.20F, 1e-5F);
        EXPECT_EQ(mesh.TexCoords[3], twoFaces().TexCoords[3]) << "belongs to the other face only";
        // on the screen the corner followed the mouse
        const Vec2 before = view.toScreen(twoFaces().TexCoords[1]);
        const Vec2 after = view.toScreen(mesh.TexCoords[1]);
        EXPECT_NEAR(after.u - before.u, dx, 1e-2F);
        EXPECT_NEAR(after.v - before.v, dy, 1e-2F);
    }
}

TEST(TexCoordDrag, MovesOneVertexAndReturnsWhatItMoved) {
    const TexCoordView view = viewOf(100, 200, 2);
    MeshRecord mesh = twoFaces();
    TexCoordDrag drag;
    EXPECT_FALSE(drag.begin({DragButton::Right, 0, 0}, view, mesh, {1, 2}));
    ASSERT_TRUE(drag.begin(left(10, 10), view, mesh, {1, 2}));
    drag.update(left(60, 60), view, mesh);
    const MovedTexCoords moved = release(drag, left(20, 50), view, mesh);
    EXPECT_FALSE(drag.active());
    EXPECT_EQ(moved.numbers, std::vector<std::int32_t>{2});
    EXPECT_EQ(moved.before, (std::vector<Vec2>{{0.75F, 0.25F}}));
    ASSERT_EQ(moved.after.size(), 1U);
    EXPECT_FLOAT_EQ(moved.after[0].u, 0.80F); // 10 / 2 / 100
    EXPECT_FLOAT_EQ(moved.after[0].v, 0.15F); // 40 / 2 / 200
    EXPECT_EQ(mesh.TexCoords[2], moved.after[0]);
    EXPECT_EQ(mesh.TexCoords[0], twoFaces().TexCoords[0]);
    EXPECT_FALSE(drag.update(left(0, 0), view, mesh));
    EXPECT_TRUE(release(drag, left(0, 0), view, mesh).numbers.empty());
}

TEST(TexCoordDrag, PinsCoordinatesAtTheEdges) {
    const TexCoordView view = viewOf(100, 100);
    MeshRecord mesh = twoFaces();
    TexCoordDrag drag;
    drag.begin(left(50, 50), view, mesh, {0, 0});
    drag.update(left(50 + 60, 50 - 60), view, mesh);
    EXPECT_FLOAT_EQ(mesh.TexCoords[0].u, 0.85F);
    EXPECT_EQ(mesh.TexCoords[0].v, 1.0F);
    EXPECT_EQ(mesh.TexCoords[1], (Vec2{1.0F, 1.0F}));
    drag.update(left(50 - 60, 50 + 60), view, mesh);
    EXPECT_EQ(mesh.TexCoords[0].u, 0.0F);
    EXPECT_EQ(mesh.TexCoords[2].v, 0.0F);
    drag.update(left(50, 50), view, mesh);
    EXPECT_EQ(mesh.TexCoords, twoFaces().TexCoords) << "each step counts from the start";
}

} // namespace
} // namespace korvane
