#include "render/drags/ViewPlaces.h"

#include <gtest/gtest.h>

namespace korvane::test {
namespace {

TEST(ViewPlaces, AreHalvesOfTheAreaWithoutTheOddPixel) {
    const ViewPlaces odd = {
        {0, 0, 150, 101}, {150, 0, 150, 101}, {0, 101, 150, 101}, {150, 101, 150, 101}};
    EXPECT_EQ(viewPlaces({301, 203}, true), odd);
    EXPECT_EQ(viewPlaces({301, 203}, false), (ViewPlaces{.space = {0, 0, 301, 203}}));
}

} // namespace
} // namespace korvane::test
