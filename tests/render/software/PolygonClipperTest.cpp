#include "render/software/PolygonClipper.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace korvane {
namespace {

RenderVertex vertex(float x, float y, float z) {
    RenderVertex v;
    v.position = {x, y, z};
    v.u = x;
    v.v = y;
    v.color = {x, y, z};
    v.specularIntensity = 1;
    return v;
}

TEST(PolygonClipper, FollowsItsRules) {
    using List = std::vector<float>;
    // triangles by their x, cut at x = 0; positive x is inside
    const struct {
        List before;
        int visible;
        List after;
    } rows[] = {{{1, 2, 3}, 1, {1, 2, 3}},
                {{-1, -2, -3}, 0, {-1, -2, -3}}, // unchanged
                // one outside: two new corners replace it, that of the previous edge first
                {{2, -2, 6}, 1, {2, 0, 0, 6}},
                {{-2, 2, 6}, 1, {0, 0, 2, 6}},
                // corners on the plane are inside and make no crossing
                {{0, -1, -1}, 0, {0, -1, -1}},
                {{0, 0, -1}, 1, {0, 0}},
                {{1, 0, -1}, 1, {1, 0, 0}},
                {{1}, 0, {1}},
                {{}, 0, {}}};
    PolygonClipper clipper;
    const auto cut = [&](const List& polygon, int visible = 1) {
        clipper.polygon().clear();
        for (const float x : polygon) {
            const auto k = static_cast<float>(clipper.polygon().size());
            clipper.polygon().push_back(vertex(x, k, k + 1));
        }
        return clipper.polyclip(visible, 1, 0, 0, 0);
    };
    for (const auto& row : rows) {
        EXPECT_EQ(cut(row.before), row.visible) << &row - rows;
        List after;
        for (const RenderVertex& v : clipper.polygon()) {
            after.push_back(v.position.x);
        }
        EXPECT_EQ(after, row.after) << &row - rows;
    }
    EXPECT_EQ(cut({1, 2, 3}, 0), 0) << "an invisible polygon is ignored";
    cut({2, -2, 6});
    const std::vector<RenderVertex>& polygon = clipper.polygon();
    EXPECT_EQ(polygon[1].position.y, 0.5F);
    EXPECT_EQ(polygon[2].position, (Vec3{0, 1.25F, 2.25F}));
    EXPECT_EQ(polygon[2].color[2], 2.25F);
    EXPECT_EQ(polygon[2].v, 1.25F);
    EXPECT_EQ(polygon[2].specularIntensity, 0) << "not interpolated";
    EXPECT_EQ(polygon[3].specularIntensity, 1);
    cut({-2, 2, 6}); // the cut wraps round to the last corner
    EXPECT_EQ(polygon[0].position.y, 0.5F);
    EXPECT_EQ(polygon[1].position.y, 0.5F);
    List zigzag; // every other corner of a large polygon outside
    for (int i = 0; i < 500; ++i) {
        zigzag.insert(zigzag.end(), {1, -1});
    }
    EXPECT_EQ(cut(zigzag), 1);
    EXPECT_EQ(polygon.size(), 1500U);
}

TEST(PolygonClipper, CutsAtEveryPlaneOfTheView) {
    const ViewGeometry view(300, 200);
    PolygonClipper clipper;
    // from far beside the view or behind the eye to a point in front of it
    for (const Vec3& far : {Vec3{-99, 0, 4}, {99, 0, 4}, {0, -99, 4}, {0, 99, 4}, {0, 0, -99}}) {
        clipper.polygon() = {vertex(0.1F, 0, 4), vertex(0, 0.1F, 4), vertex(far.x, far.y, far.z)};
        EXPECT_TRUE(clipper.clip(view));
        double nearest = 1;
        for (const RenderVertex& v : clipper.polygon()) {
            for (const ClipPlane& plane : view.planes) {
                nearest = std::min(nearest, double{plane.distance(v.position)});
            }
        }
        EXPECT_NEAR(nearest, 0, 1e-4);
        clipper.polygon() = {vertex(far.x, far.y, far.z), vertex(far.x, far.y, far.z - 1),
                             vertex(far.x + 1, far.y, far.z)};
        EXPECT_FALSE(clipper.clip(view));
    }
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
