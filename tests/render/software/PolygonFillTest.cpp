#include "render/software/PolygonFill.h"

#include "render/scene/ViewGeometry.h"
#include "render/software/DepthOrder.h"
#include "support/Scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

namespace korvane {
namespace {

/// A picture to fill polygons into, black and empty to the far end.
struct Canvas {
    Canvas(std::int32_t width, std::int32_t height)
        : depths(static_cast<std::size_t>(width * height) + Bitmap::slack, ViewGeometry::farZ) {
        bitmap.resize(width, height);
        bitmap.fill(0xff000000U);
    }
    RasterTarget target() {
        return {bitmap.pixels(), depths.data(), bitmap.width(), bitmap.height()};
    }
    void fill(const std::vector<RasterCorner>& corners, const RasterSurface& surface = {}) {
        fillPolygon(target(), corners, surface);
    }
    Bitmap bitmap;
    std::vector<float> depths;
};

RasterCorner corner(double x, double y, float z, float red = 255, float s = 0, float t = 0) {
    const auto subpixel = [](double pixel) {
        return static_cast<std::int32_t>(std::lround(pixel * subpixels));
    };
    return {subpixel(x), subpixel(y), {z, red, 0, 0}, s, t};
}

TEST(PolygonFill, TrianglesThatShareEdgesTakeEveryPixelOnce) {
    // a net of jittered points; each pixel is blended once exactly if its red is half
    RasterSurface half;
    half.blend = true;
    half.opacity = 0.5F;
    for (const auto& [cells, slant] :
         {std::pair{60, 0.0}, {9, 0.0}, {3, 0.0}, {9, 0.6}, {2, 0.6}}) {
        Canvas canvas(90, 90);
        std::mt19937 random(static_cast<unsigned>(cells));
        std::uniform_real_distribution<double> jitter(-0.2, 0.2);
        const int side = cells + 1;
        std::vector<RasterCorner> points;
        for (int i = 0; i < side * side; ++i) {
            const double step = 100.0 / cells;
            const double reach = std::min(step, 20.0);
            // corners on pixel centres and edges along rows are the delicate ones
            const bool wide = step > 8;
            const double x = wide && i % 3 == 0 ? 0.5 : jitter(random) * reach;
            const double y = wide && i % 5 == 0 ? 0.5 : jitter(random) * reach;
            points.push_back(corner((wide ? std::floor(i % side * step) : i % side * step) - 5 + x,
                                    (wide ? std::floor(i / side * step) : i / side * step) - 5 + y,
                                    static_cast<float>(2 + slant * (i % 7))));
        }
        std::vector<std::vector<RasterCorner>> triangles;
        for (int y = 0; y < cells; ++y) {
            for (int x = 0; x < cells; ++x) {
                const auto a = static_cast<std::size_t>(y * side + x);
                const std::size_t below = a + static_cast<std::size_t>(side);
                triangles.push_back({points[a], points[a + 1], points[below]});
                triangles.push_back({points[a + 1], points[below], points[below + 1]});
            }
        }
        std::shuffle(triangles.begin(), triangles.end(), random);
        for (const auto& triangle : triangles) {
            canvas.fill(triangle, half);
        }
        int wrong = 0;
        for (int y = 2; y < 80; ++y) {
            for (int x = 2; x < 80; ++x) {
                wrong += test::difference(canvas.bitmap.at(x, y), 0xff800000U) > 1 ? 1 : 0;
            }
        }
        EXPECT_EQ(wrong, 0) << cells << " cells, slant " << slant;
        EXPECT_EQ(canvas.depths[0], ViewGeometry::farZ) << "blending leaves the depths alone";
    }
}

TEST(PolygonFill, DepthsDecideWhereTrianglesCross) {
    // two slopes from left to right, in view space z as a function of the screen: 1 / z is straight
    for (const double size : {8.0, 60.0}) {
        Canvas canvas(60, 60);
        canvas.fill({corner(0, 0, 2, 10), corner(size, 0, 8, 10), corner(0, size, 2, 10)});
        canvas.fill({corner(0, 0, 6, 200), corner(size, 0, 3, 200), corner(0, size, 6, 200)});
        int wrong = 0;
        for (int x = 0; x < static_cast<int>(size) - 1; ++x) {
            const double part = (x + 0.5) / size;
            const double first = 1 / (1 / 2.0 + part * (1 / 8.0 - 1 / 2.0));
            const double second = 1 / (1 / 6.0 + part * (1 / 3.0 - 1 / 6.0));
            const BitmapPixel nearer = first < second ? 0xff0a0000U : 0xffc80000U;
            wrong += std::abs(first - second) > 1e-3 && canvas.bitmap.at(x, 0) != nearer ? 1 : 0;
            EXPECT_NEAR(canvas.depths[static_cast<std::size_t>(x)], std::min(first, second), 1e-4);
        }
        EXPECT_EQ(wrong, 0) << size;
    }
}

TEST(PolygonFill, ColoursAndTexturesRunInPerspective) {
    TextureImage image; // a ramp from left to right
    image.width = 256;
    image.height = 1;
    image.pixels.clear();
    for (int i = 0; i < 256; ++i) {
        image.pixels.push_back({static_cast<std::uint8_t>(i), 0, 0, 255});
    }
    const TextureSampler sampler(image);
    RasterSurface surface;
    for (const bool textured : {false, true}) {
        surface.texture = textured ? &sampler : nullptr;
        Canvas canvas(200, 100);
        const float lit = textured ? 255 : 0;
        const float end = 200.0F * TextureSampler::steps;
        canvas.fill({corner(0, 0, 1, lit), corner(200, 0, 5, textured ? 255 : 200, end),
                     corner(200, 100, 5, textured ? 255 : 200, end), corner(0, 100, 1, lit)},
                    surface);
        for (int x = 0; x < 200; ++x) {
            const double part = (x + 0.5) / 200;
            const double z = 1 / (1 + part * (0.2 - 1));
            const double expected = part * 200 / 5 * z;
            const auto red = static_cast<double>(canvas.bitmap.at(x, 50) >> 16U & 0xffU);
            ASSERT_NEAR(red, expected, 1.1) << x << (textured ? " textured" : " lit");
        }
    }
}

TEST(PolygonFill, TexturesAreBilinearRepeatAndMultiplyTheLight) {
    TextureImage image; // of a size that is no power of two
    image.width = 3;
    image.height = 2;
    image.pixels = {{0, 0, 0, 255},  {100, 0, 0, 255}, {200, 0, 0, 255},
                    {40, 40, 40, 0}, {40, 40, 40, 0},  {40, 40, 40, 128}};
    const TextureSampler sampler(image);
    constexpr std::int32_t steps = TextureSampler::steps;
    const auto channel = [&](std::size_t number, double column, double row) {
        // lanes that are not wanted may stand anywhere
        constexpr std::int32_t far = std::numeric_limits<std::int32_t>::max();
        const IntLanes x = {-far - 1, far, static_cast<std::int32_t>(column * steps), -1};
        const IntLanes y = {far, -far - 1, static_cast<std::int32_t>(row * steps), 7 * steps};
        return std::lround(sampler.at(x, y, IntLanes{0, 0, -1, 0})[number][2] * 255.0F);
    };
    const auto red = [&](double column, double row) { return channel(0, column, row); };
    EXPECT_EQ(red(1, 0), 100);
    EXPECT_EQ(red(1.5, 0), 150);
    EXPECT_EQ(red(2.5, 0), 100) << "the last column goes over into the first";
    EXPECT_EQ(red(7, 0), 100);
    EXPECT_EQ(red(1, 0.5), 70);
    EXPECT_EQ(red(1, 1.5), 70) << "the last row into the first";
    EXPECT_EQ(channel(3, 2, 1), 128);
    EXPECT_LE(red(-1e6, -7), 200) << "some pixel, wherever it is";
    Canvas canvas(20, 20);
    RasterSurface surface;
    surface.texture = &sampler;
    surface.blend = true;
    canvas.bitmap.fill(0xff646464U);
    const float s = 2.0F * steps;
    const float t = 1.0F * steps;
    canvas.fill({corner(0, 0, 1, 127.5F, s, t), corner(20, 0, 1, 127.5F, s, t),
                 corner(0, 20, 1, 127.5F, s, t)},
                surface);
    // half of 40 by the light, half of that over 100 by the texture's alpha
    EXPECT_LE(test::difference(canvas.bitmap.at(2, 2), 0xff3c3232U), 1);
}

TEST(PolygonFill, StaysWithinThePicture) {
    Canvas canvas(33, 17);
    canvas.fill({corner(-9000, -9000, 1), corner(16000, -9000, 3), corner(16000, 16000, 1),
                 corner(-9000, 16000, 9)});
    EXPECT_EQ(countOtherThan(imageOf(canvas.bitmap), 0xff000000U), 33U * 17U);
    for (std::size_t i = 33U * 17U; i < canvas.depths.size(); ++i) {
        EXPECT_EQ(canvas.depths[i], ViewGeometry::farZ);
        EXPECT_EQ(canvas.bitmap.pixels()[i], 0xff000000U);
    }
    Canvas empty(33, 17);
    empty.fill({corner(3, 3, 1), corner(20, 14, 1)});
    empty.fill({corner(3, 3, 1), corner(9, 9, 1), corner(20, 20, 1)});
    empty.fill({});
    EXPECT_EQ(countOtherThan(imageOf(empty.bitmap), 0xff000000U), 0U);
}

TEST(DepthOrder, IsDescendingAndKeepsEqualDepthsInOrder) {
    for (const int count : {0, 1, 3, 63, 64, 5000}) {
        std::mt19937 random(5);
        std::vector<float> depths;
        std::vector<DepthKey> keys;
        std::vector<DepthKey> scratch;
        for (int i = 0; i < count; ++i) {
            depths.push_back(static_cast<float>(static_cast<int>(random() % 200) - 50) * 0.37F);
            keys.emplace_back(depths.back(), static_cast<std::uint32_t>(i));
        }
        std::vector<std::uint32_t> expected(depths.size());
        std::iota(expected.begin(), expected.end(), 0U);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](std::uint32_t a, std::uint32_t b) { return depths[a] > depths[b]; });
        orderFarToNear(keys, scratch);
        std::vector<std::uint32_t> order;
        order.reserve(keys.size());
        for (const DepthKey& key : keys) {
            order.push_back(key.index);
        }
        EXPECT_EQ(order, expected) << count;
    }
}

} // namespace
} // namespace korvane
