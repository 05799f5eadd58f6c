#include "render/picture/LineDrawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace korvane {
namespace {

constexpr BitmapPixel paper = 0xffffffffU;
constexpr BitmapPixel ink = 0xff102030U;

Bitmap sheet(std::int32_t width, std::int32_t height) {
    Bitmap bitmap;
    bitmap.resize(width, height);
    bitmap.fill(paper);
    return bitmap;
}

std::string shown(const Bitmap& bitmap) {
    std::string text;
    for (std::int32_t y = 0; y < bitmap.height(); ++y) {
        for (std::int32_t x = 0; x < bitmap.width(); ++x) {
            text += bitmap.at(x, y) == ink ? '#' : '.';
        }
        text += '\n';
    }
    return text;
}

TEST(LineDrawing, LineTakesTheNearestPixelOfEachStep) {
    std::mt19937 random(3);
    std::uniform_int_distribution<std::int32_t> place(0, 39);
    for (int round = 0; round < 500; ++round) {
        Bitmap bitmap = sheet(40, 40);
        const PixelPoint from = {place(random), place(random)};
        const PixelPoint to = {place(random), place(random)};
        drawLine(bitmap, from, to, ink);
        const int dx = to.x - from.x;
        const int dy = to.y - from.y;
        const int longer = std::max(std::abs(dx), std::abs(dy));
        EXPECT_EQ(countOtherThan(imageOf(bitmap), paper), static_cast<std::size_t>(longer) + 1);
        EXPECT_EQ(bitmap.at(from.x, from.y), ink);
        EXPECT_EQ(bitmap.at(to.x, to.y), ink);
        for (std::int32_t y = 0; y < 40; ++y) {
            for (std::int32_t x = 0; x < 40; ++x) {
                // how far off the line, along its shorter side, in units of its longer one
                const int off = std::abs((x - from.x) * dy - (y - from.y) * dx);
                EXPECT_TRUE(bitmap.at(x, y) == paper || 2 * off <= longer);
            }
        }
    }
}

TEST(LineDrawing, CutLinesKeepThePixelsOfTheWholeLine) {
    std::mt19937 random(7);
    constexpr std::int32_t margin = 60;
    std::uniform_int_distribution<std::int32_t> place(-margin, 99);
    for (int round = 0; round < 3000; ++round) {
        Bitmap whole = sheet(160, 160);
        Bitmap part = sheet(37, 23);
        const PixelPoint from = {place(random), place(random)};
        const PixelPoint to = {place(random), place(random)};
        drawLine(part, from, to, ink);
        drawLine(whole, {from.x + margin, from.y + margin}, {to.x + margin, to.y + margin}, ink);
        for (std::int32_t y = 0; y < part.height(); ++y) {
            for (std::int32_t x = 0; x < part.width(); ++x) {
                ASSERT_EQ(part.at(x, y), whole.at(x + margin, y + margin))
                    << from.x << ' ' << from.y << ' ' << to.x << ' ' << to.y;
            }
        }
    }
}

TEST(LineDrawing, FarEndsAreSafeAndTakeNoTime) {
    using Limits = std::numeric_limits<std::int32_t>;
    constexpr double far = 1e12;
    constexpr double farthest = std::numeric_limits<double>::max();
    Bitmap bitmap = sheet(9, 5);
    // drawn often: lines of four thousand million pixels must not be walked
    for (int round = 0; round < 20'000; ++round) {
        drawLine(bitmap, {Limits::min(), 1}, {Limits::max(), 1}, ink);
        drawLine(bitmap, {4, Limits::max()}, {4, Limits::min()}, ink);
        drawLine(bitmap, {Limits::min(), Limits::min()}, {Limits::max(), Limits::min()}, ink);
        drawLine(bitmap, -far, 3.0, far, 3.0, ink);
        drawLine(bitmap, far, far, far, -far, ink);
        drawLine(bitmap, -farthest, 1e30, 0.0, farthest, ink);
    }
    EXPECT_EQ(shown(bitmap), "....#....\n"
                             "#########\n"
                             "....#....\n"
                             "#########\n"
                             "....#....\n");
    Bitmap diagonal = sheet(5, 5);
    drawLine(diagonal, -far, -far, far, far, ink);
    drawLine(diagonal, far, 4 - far, 4 - far, far, ink);
    drawLine(diagonal, -farthest, -farthest, farthest, farthest, ink);
    EXPECT_EQ(shown(diagonal), "#...#\n.#.#.\n..#..\n.#.#.\n#...#\n");
}

TEST(LineDrawing, NothingIsDrawnWithoutFiniteEnds) {
    Bitmap bitmap = sheet(9, 9);
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {infinity, -infinity, std::nan("")}) {
        drawLine(bitmap, bad, 4, 4, 4, ink);
        drawLine(bitmap, 4, bad, 4, 4, ink);
        drawLine(bitmap, 4, 4, bad, 4, ink);
        drawLine(bitmap, 4, 4, 4, bad, ink);
    }
    EXPECT_EQ(countOtherThan(imageOf(bitmap), paper), 0U);
}

TEST(LineDrawing, EllipsesAreRoundAndCut) {
    Bitmap bitmap = sheet(11, 7);
    drawEllipse(bitmap, {2, 3}, 2, 2, ink);
    drawEllipse(bitmap, {8, 3}, 1, 3, ink);
    EXPECT_EQ(shown(bitmap), "........#..\n"
                             ".###...#.#.\n"
                             "#...#..#.#.\n"
                             "#...#..#.#.\n"
                             "#...#..#.#.\n"
                             ".###...#.#.\n"
                             "........#..\n");
    Bitmap corner = sheet(3, 3);
    drawEllipse(corner, {0, 0}, 2, 2, ink);
    drawEllipse(corner, {1 << 30, -(1 << 30)}, 1 << 30, 1 << 30, ink);
    EXPECT_EQ(shown(corner), "..#\n..#\n##.\n");
    Bitmap pixel = sheet(1, 1);
    drawEllipse(pixel, {0, 0}, 0, -5, ink);
    EXPECT_EQ(shown(pixel), "#\n");
    Bitmap flat = sheet(5, 3);
    drawEllipse(flat, {2, 1}, 2, 0, ink);
    EXPECT_EQ(shown(flat), ".....\n#####\n.....\n");
}

} // namespace
} // namespace korvane
