#include "render/planes/PlaneAxes.h"

#include "render/scene/AxisCross.h"
#include "render/scene/AxisDirections.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace korvane::test {
namespace {

TEST(PlaneAxes, LieAtTheEndsOfTheVisibleLines) {
    const std::tuple<ViewPlane, Vec3, const char*> rows[] = {
        {ViewPlane::XY, {}, "X 0 40 Y 50 0 "},       {ViewPlane::XZ, {}, "X 0 40 Z 50 0 "},
        {ViewPlane::ZY, {}, "Z 99 40 Y 50 0 "},      {ViewPlane::XY, {4, 3, 9}, "X 0 34 Y 42 0 "},
        {ViewPlane::XY, {0, 30, 0}, "Y 50 0 "},      {ViewPlane::ZY, {0, 0, -26}, "Z 99 40 "},
        {ViewPlane::XZ, {99, 0, -99}, ""},           {ViewPlane::XY, {-25, -20, 0}, ""},
        {ViewPlane::XY, {25, 20, 0}, "X 0 0 Y 0 0 "}};
    for (const auto& [plane, pan, expected] : rows) {
        std::string found;
        for (const auto& axis : planeAxes(planeMapping(plane, 100, 80, 2, pan), 100, 80)) {
            if (axis) {
                found += axis->letter;
                found += ' ' + std::to_string(static_cast<int>(axis->x)) + ' ' +
                         std::to_string(static_cast<int>(axis->y)) + ' ';
            }
        }
        EXPECT_EQ(found, expected);
    }
}

TEST(AxisCross, MatchesTheAxesOfThe2DViewsFromTheirDirections) {
    const std::pair<const char*, ViewPlane> views[] = {
        {"+Z", ViewPlane::XY}, {"-Y", ViewPlane::XZ}, {"+X", ViewPlane::ZY}};
    for (const auto& [name, plane] : views) {
        for (const AxisDirection& axis : axisDirections) {
            if (axis.name != std::string(name)) {
                continue;
            }
            for (const CrossArm& arm : axisCross(axis.angles)) {
                const Vec3 of = {arm.letter == 'X' ? 1.0F : 0.0F, arm.letter == 'Y' ? 1.0F : 0.0F,
                                 arm.letter == 'Z' ? 1.0F : 0.0F};
                const PlanePoint way = toPlane(plane, of);
                EXPECT_NEAR(arm.right, way.u, 1e-6) << name << arm.letter;
                EXPECT_NEAR(arm.up, way.v, 1e-6) << name << arm.letter;
                EXPECT_NEAR(arm.depth, dotproduct(of, axis.direction), 1e-6);
            }
        }
    }
}

} // namespace
} // namespace korvane::test
