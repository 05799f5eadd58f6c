#include "render/picture/LineDrawing.h"

#include <gtest/gtest.h>

#include <cmath>
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

TEST(LineDrawing, LinesTakeTheNearestPixelOfEachStepEvenWhenCut) {
    constexpr std::int32_t margin = 35;
    std::mt19937 random(7);
    std::uniform_int_distribution<std::int32_t> place(0, 99);
    for (int round = 0; round < 1500; ++round) {
        Bitmap whole = sheet(100, 100);
        Bitmap part = sheet(37, 23);
        const PixelPoint from = {place(random), place(random)};
        const PixelPoint to = {place(random), place(random)};
        drawLine(whole, from, to, ink);
        drawLine(part, {from.x - margin, from.y - margin}, {to.x - margin, to.y - margin}, ink);
        const int dx = to.x - from.x;
        const int dy = to.y - from.y;
        const int longer = std::max(std::abs(dx), std::abs(dy));
        int wrong = 0;
        for (std::int32_t y = 0; y < 100; ++y) {
            for (std::int32_t x = 0; x < 100; ++x) {
                // the distance from the line along its shorter side, in units of its longer one
                const int off = std::abs((x - from.x) * dy - (y - from.y) * dx);
                wrong += whole.at(x, y) == ink && 2 * off > longer ? 1 : 0;
            }
        }
        EXPECT_EQ(wrong, 0) << from.x << ' ' << from.y << ' ' << to.x << ' ' << to.y;
        EXPECT_EQ(imageOf(whole).copy(margin, margin, 37, 23), imageOf(part));
        EXPECT_EQ(countOtherThan(imageOf(whole), paper), static_cast<std::size_t>(longer) + 1);
        EXPECT_EQ(whole.at(from.x, from.y), ink);
        EXPECT_EQ(whole.at(to.x, to.y), ink);
    }
}

TEST(LineDrawing, FarEndsAreSafeAndTakeNoTime) {
    using Limits = std::numeric_limits<std::int32_t>;
    constexpr double far = 1e12;
    constexpr double farthest = std::numeric_limits<double>::max();
    Bitmap bitmap = sheet(9, 5);
    // drawn often: stepping through four billion pixels would take forever
    for (int round = 0; round < 20'000; ++round) {
        drawLine(bitmap, {Limits::min(), 1}, {Limits::max(), 1}, ink);
        drawLine(bitmap, {4, Limits::max()}, {4, Limits::min()}, ink);
        drawLine(bitmap, {Limits::min(), Limits::min()}, {Limits::max(), Limits::min()}, ink);
        drawLine(bitmap, -far, 3.0, far, 3.0, ink);
        drawLine(bitmap, far, far, far, -far, ink);
        drawLine(bitmap, -farthest, 1e30, 0.0, farthest, ink);
    }
    for (const double bad : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        drawLine(bitmap, bad, 0, 4, 0, ink);
        drawLine(bitmap, 0, bad, 0, 4, ink);
        drawLine(bitmap, 4, 0, bad, 0, ink);
        drawLine(bitmap, 0, 4, 0, bad, ink);
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

TEST(LineDrawing, EllipsesAreRoundAndCut) {
    Bitmap bitmap = sheet(19, 7);
    drawEllipse(bitmap, {2, 3}, 2, 2, ink);
    drawEllipse(bitmap, {8, 3}, 1, 3, ink);
    drawEllipse(bitmap, {11, 3}, 0, 3, ink);
    drawEllipse(bitmap, {15, 3}, 2, 0, ink);
    drawEllipse(bitmap, {18, 0}, 0, -5, ink);
    drawEllipse(bitmap, {18, 6}, 1, 1, ink);
    drawEllipse(bitmap, {1 << 30, -(1 << 30)}, 1 << 30, 1 << 30, ink);
    EXPECT_EQ(shown(bitmap), "........#..#......#\n"
                             ".###...#.#.#.......\n"
                             "#...#..#.#.#.......\n"
                             "#...#..#.#.#.#####.\n"
                             "#...#..#.#.#.......\n"
                             ".###...#.#.#......#\n"
                             "........#..#.....#.\n");
}

} // namespace
} // namespace korvane
