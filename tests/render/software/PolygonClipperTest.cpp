#include "render/software/PolygonClipper.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace korvane {
namespace {

RenderVertex vertex(float x, float y, float z) {
    RenderVertex v;
    v.position = {x, y, z};
    v.normal = {x, 0, 0};
    v.u = x;
    v.v = y;
    v.color = {x, y, z};
    v.specularIntensity = 1;
    return v;
}

/// Cuts the polygon at x = 0, the side of positive x being inside.
int cutAtZero(PolygonClipper& clipper, std::vector<RenderVertex> polygon, int visible = 1) {
    clipper.polygon() = std::move(polygon);
    return clipper.polyclip(visible, 1, 0, 0, 0);
}

std::vector<float> xs(PolygonClipper& clipper) {
    std::vector<float> list;
    for (const RenderVertex& v : clipper.polygon()) {
        list.push_back(v.position.x);
    }
    return list;
}

TEST(PolygonClipper, FollowsItsRules) {
    PolygonClipper clipper;
    const auto triangle = [](float a, float b, float c) {
        return std::vector{vertex(a, 0, 1), vertex(b, 1, 2), vertex(c, 2, 3)};
    };
    using List = std::vector<float>;
    EXPECT_EQ(cutAtZero(clipper, triangle(1, 2, 3)), 1);
    EXPECT_EQ(xs(clipper), (List{1, 2, 3}));
    EXPECT_EQ(cutAtZero(clipper, triangle(-1, -2, -3)), 0);
    EXPECT_EQ(xs(clipper), (List{-1, -2, -3})) << "left as it was";
    // one outside: two new corners in its place, that of the previous edge first
    EXPECT_EQ(cutAtZero(clipper, triangle(2, -2, 6)), 1);
    EXPECT_EQ(xs(clipper), (List{2, 0, 0, 6}));
    EXPECT_FLOAT_EQ(clipper.polygon()[1].position.y, 0.5F);
    EXPECT_FLOAT_EQ(clipper.polygon()[2].position.y, 1.25F);
    EXPECT_FLOAT_EQ(clipper.polygon()[2].color[2], 2.25F);
    EXPECT_FLOAT_EQ(clipper.polygon()[2].v, 1.25F);
    EXPECT_EQ(clipper.polygon()[2].specularIntensity, 0) << "not interpolated";
    EXPECT_EQ(clipper.polygon()[3].specularIntensity, 1);
    // the first corner outside: its previous one is the last
    EXPECT_EQ(cutAtZero(clipper, triangle(-2, 2, 6)), 1);
    EXPECT_EQ(xs(clipper), (List{0, 0, 2, 6}));
    EXPECT_FLOAT_EQ(clipper.polygon()[0].position.y, 0.5F);
    EXPECT_FLOAT_EQ(clipper.polygon()[1].position.y, 0.5F);
    // on the plane counts as inside and gives no crossing
    EXPECT_EQ(cutAtZero(clipper, triangle(0, -1, -1)), 0);
    EXPECT_EQ(cutAtZero(clipper, triangle(0, 0, -1)), 1);
    EXPECT_EQ(clipper.polygon().size(), 2U);
    EXPECT_EQ(cutAtZero(clipper, triangle(1, 0, -1)), 1);
    EXPECT_EQ(xs(clipper), (List{1, 0, 0}));
    // what is no longer visible is not looked at
    EXPECT_EQ(cutAtZero(clipper, triangle(1, 2, 3), 0), 0);
    EXPECT_EQ(cutAtZero(clipper, {}), 0);
    EXPECT_EQ(cutAtZero(clipper, {vertex(1, 0, 0)}), 0);
}

TEST(PolygonClipper, EveryOtherCornerOutsideOfALargePolygon) {
    PolygonClipper clipper;
    for (int i = 0; i < 1000; ++i) {
        clipper.polygon().push_back(vertex(i % 2 == 0 ? 1.0F : -1.0F, static_cast<float>(i), 0));
    }
    EXPECT_EQ(clipper.polyclip(1, 1, 0, 0, 0), 1);
    EXPECT_EQ(clipper.polygon().size(), 1500U);
}

struct Point {
    double x, y;
};

double area(const std::vector<Point>& polygon) {
    double sum = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& p = polygon[i];
        const Point& q = polygon[(i + 1) % polygon.size()];
        sum += p.x * q.y - p.y * q.x;
    }
    return sum / 2;
}

/// The area of the triangle within the square of the given half side, by counting fine strips: in
/// each the covered length between the edges.
double areaWithin(const std::vector<Point>& triangle, double half) {
    constexpr int strips = 20000;
    double sum = 0;
    for (int i = 0; i < strips; ++i) {
        const double y = -half + (i + 0.5) * 2 * half / strips;
        double from = 1e9;
        double to = -1e9;
        for (std::size_t k = 0; k < 3; ++k) {
            const Point& p = triangle[k];
            const Point& q = triangle[(k + 1) % 3];
            if ((p.y <= y) != (q.y <= y)) {
                const double x = p.x + (q.x - p.x) * (y - p.y) / (q.y - p.y);
                from = std::min(from, x);
                to = std::max(to, x);
            }
        }
        sum += std::max(0.0, std::min(to, half) - std::max(from, -half));
    }
    return sum * 2 * half / strips;
}

TEST(PolygonClipper, KeepsTheAreaWithinTheView) {
    // all corners at one depth: the walls are then a square around the axis
    const ViewGeometry view(300, 300);
    const double half = std::tan(std::atan2(150.0, double{view.f}) - 0.0001) * 4;
    std::mt19937 random(7);
    std::uniform_real_distribution<float> position(-6, 6);
    int cut = 0;
    for (int round = 0; round < 200; ++round) {
        PolygonClipper clipper;
        std::vector<Point> triangle;
        for (int k = 0; k < 3; ++k) {
            clipper.polygon().push_back(vertex(position(random), position(random), 4));
            triangle.push_back(
                {clipper.polygon().back().position.x, clipper.polygon().back().position.y});
        }
        std::vector<Point> left;
        if (clipper.clip(view)) {
            for (const RenderVertex& v : clipper.polygon()) {
                left.push_back({v.position.x, v.position.y});
            }
        }
        cut += left.size() > 3 ? 1 : 0;
        ASSERT_NEAR(std::abs(area(left)), areaWithin(triangle, half), 2e-3) << round;
    }
    EXPECT_GT(cut, 50);
}

TEST(ClipLine, CutsAtThePlanesAndDropsWhatIsOutside) {
    const ViewGeometry view(200, 200);
    Vec3 a = {0, 0, -10};
    Vec3 b = {0, 0, 10};
    EXPECT_TRUE(clipLine(view, a, b));
    EXPECT_FLOAT_EQ(a.z, 0.25F);
    EXPECT_EQ(b, (Vec3{0, 0, 10}));
    a = {-100, 0, 5};
    b = {100, 0, 5};
    EXPECT_TRUE(clipLine(view, a, b));
    EXPECT_NEAR(a.x, -5 * 100 / view.f, 2e-3);
    EXPECT_NEAR(b.x, 5 * 100 / view.f, 2e-3);
    a = {-100, 90, 5};
    b = {-90, -100, 5};
    EXPECT_FALSE(clipLine(view, a, b));
}

} // namespace
} // namespace korvane
