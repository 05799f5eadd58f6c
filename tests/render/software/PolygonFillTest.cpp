#include "render/software/PolygonFill.h"

#include "render/scene/ViewGeometry.h"
#include "render/software/DepthOrder.h"
#include "support/Scene.h"

#include <limits>
#include <random>

namespace korvane::test {
namespace {

constexpr std::int32_t steps = TextureSampler::steps;

/// A picture to fill polygons into, black and empty to the far end.
struct Canvas {
    Canvas(std::int32_t width, std::int32_t height)
        : depths(static_cast<std::size_t>(width * height) + Bitmap::slack, ViewGeometry::farZ) {
        bitmap.resize(width, height);
        bitmap.fill(0xff000000U);
    }
    void fill(const std::vector<RasterCorner>& corners, const RasterSurface& surface = {}) {
        fillPolygon({bitmap.pixels(), depths.data(), bitmap.width(), bitmap.height()}, corners,
                    surface);
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
    // a net of jittered points; a pixel has half red if it was blended exactly once
    RasterSurface half;
    half.blend = true;
    half.opacity = 0.5F;
    for (const auto& [cells, slant] :
         {std::pair{60, 0.0}, {9, 0.0}, {3, 0.0}, {9, 0.6}, {2, 0.6}}) {
        Canvas canvas(90, 90);
        std::mt19937 random(static_cast<unsigned>(cells));
        const double step = 100.0 / cells;
        const double reach = 0.2 * std::min(step, 20.0);
        std::uniform_real_distribution<double> jitter(-reach, reach);
        // corners on pixel centres and edges along rows are the tricky ones
        const auto place = [&](int number, bool onCentre) {
            const double at = number * step - 5;
            return step > 8 && onCentre ? std::floor(at) + 0.5 : at + jitter(random);
        };
        const int side = cells + 1;
        std::vector<RasterCorner> points;
        for (int i = 0; i < side * side; ++i) {
            points.push_back(corner(place(i % side, i % 3 == 0), place(i / side, i / side % 2 == 0),
                                    static_cast<float>(2 + slant * (i % 7))));
        }
        std::vector<std::vector<RasterCorner>> triangles;
        for (int i = 0; i < cells * side; ++i) {
            if (i % side < cells) {
                const auto* const at = &points[static_cast<std::size_t>(i)];
                triangles.push_back({at[0], at[1], at[side]});
                triangles.push_back({at[1], at[side], at[side + 1]});
            }
        }
        std::shuffle(triangles.begin(), triangles.end(), random);
        for (const auto& triangle : triangles) {
            canvas.fill(triangle, half);
        }
        int wrong = 0;
        for (int y = 2; y < 80; ++y) {
            for (int x = 2; x < 80; ++x) {
                wrong += difference(canvas.bitmap.at(x, y), 0xff800000U) > 1 ? 1 : 0;
            }
        }
        EXPECT_EQ(wrong, 0) << cells << " cells, slant " << slant;
        EXPECT_EQ(canvas.depths[0], ViewGeometry::farZ) << "blending leaves the depths alone";
    }
}

TEST(PolygonFill, ColoursAndTexturesRunInPerspective) {
    std::vector<Rgba8> ramp;
    for (int i = 0; i < 256; ++i) {
        ramp.push_back({static_cast<std::uint8_t>(i), 0, 0, 255});
    }
    MaterialRecord material;
    setTexture(material, 256, ramp);
    const TextureSampler sampler(*material.TextureImage);
    for (const auto& [size, textured] :
         {std::pair{200, false}, {200, true}, {10, false}, {10, true}}) {
        RasterSurface surface;
        surface.texture = textured ? &sampler : nullptr;
        Canvas canvas(200, 100);
        const float from = textured ? 255 : 0;
        const float to = textured ? 255 : 200;
        const float end = 200.0F * steps;
        canvas.fill({corner(0, 0, 1, from), corner(size, 0, 5, to, end),
                     corner(size, size, 5, to, end), corner(0, size, 1, from)},
                    surface);
        for (int x = 0; x < size; ++x) {
            const double part = (x + 0.5) / size;
            const double z = 1 / (1 + part * (0.2 - 1));
            ASSERT_NEAR(qRed(canvas.bitmap.at(x, 5)), part * 200 / 5 * z, 1.1)
                << x << (textured ? " textured" : " lit");
            ASSERT_NEAR(canvas.depths[static_cast<std::size_t>(1000 + x)], z, 1e-4) << x;
        }
    }
}

TEST(PolygonFill, TexturesAreBilinearRepeatAndMultiplyTheLight) {
    MaterialRecord material; // its texture size is not a power of two
    setTexture(material, 3,
               {{0, 0, 0, 255},
                {100, 0, 0, 255},
                {200, 0, 0, 255},
                {40, 40, 40, 0},
                {40, 40, 40, 0},
                {40, 40, 40, 128}});
    const TextureSampler sampler(*material.TextureImage);
    const auto channel = [&](std::size_t number, double column, double row) {
        // unwanted lanes may have any position
        constexpr std::int32_t far = std::numeric_limits<std::int32_t>::max();
        const IntLanes x = {-far - 1, far, static_cast<std::int32_t>(column * steps), -1};
        const IntLanes y = {far, -far - 1, static_cast<std::int32_t>(row * steps), 7 * steps};
        return std::lround(sampler.at(x, y, IntLanes{0, 0, -1, 0})[number][2] * 255.0F);
    };
    EXPECT_EQ(channel(0, 1, 0), 100);
    EXPECT_EQ(channel(0, 1.5, 0), 150);
    EXPECT_EQ(channel(0, 2.5, 0), 100) << "the last column blends into the first";
    EXPECT_EQ(channel(0, 7, 0), 100);
    EXPECT_EQ(channel(0, 1, 0.5), 70);
    EXPECT_EQ(channel(0, 1, 1.5), 70) << "the last row into the first";
    EXPECT_EQ(channel(3, 2, 1), 128);
    EXPECT_LE(channel(0, -1e6, -7), 200) << "some pixel, wherever it is";
    Canvas canvas(20, 20);
    RasterSurface surface;
    surface.texture = &sampler;
    surface.blend = true;
    canvas.bitmap.fill(0xff646464U);
    const auto lit = [](double x, double y) {
        return corner(x, y, 1, 127.5F, 2 * steps, 1 * steps);
    };
    canvas.fill({lit(0, 0), lit(20, 0), lit(0, 20)}, surface);
    // half of 40 by the light, half of that over 100 by the texture's alpha
    EXPECT_LE(difference(canvas.bitmap.at(2, 2), 0xff3c3232U), 1);
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
    for (const std::uint32_t count : {0U, 1U, 3U, 63U, 64U, 5000U}) {
        std::mt19937 random(5);
        std::vector<std::pair<float, std::uint32_t>> expected; // nearness and number
        std::vector<DepthKey> keys;
        std::vector<DepthKey> scratch;
        for (std::uint32_t i = 0; i < count; ++i) {
            const float depth = static_cast<float>(static_cast<int>(random() % 200) - 50) * 0.37F;
            expected.emplace_back(-depth, i);
            keys.emplace_back(depth, i);
        }
        std::sort(expected.begin(), expected.end());
        orderFarToNear(keys, scratch);
        ASSERT_EQ(keys.size(), count);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(keys[i].index, expected[i].second) << count;
        }
    }
}

} // namespace
} // namespace korvane::test
