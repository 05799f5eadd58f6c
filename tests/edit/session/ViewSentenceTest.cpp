#include "edit/session/ViewSentence.h"

#include "support/FrameMaking.h"
#include "support/Scene.h"

#include <gtest/gtest.h>

namespace korvane::test {
namespace {

TEST(ViewSentence, TellsWhatEachViewShows) {
    ModelDocument document;
    document.Root = named("frm-root", {named("frm-arm", {named("frm-hand \xE9")})});
    document.Root.Children[0].Matrix = translation(1, -2, 3);
    document.Root.Children[0].Children[0].Matrix = translation(0.25F, 0, 0.004F);
    document.Selected.Frame = path({1, 1});

    const struct {
        ViewPlane plane;
        float scale;
        const char* sentence;
    } planes[] = {
        {ViewPlane::XY, 10, "XY plane, 10 pixels to a unit; frame frm-hand é is at x 1.3  y -2.0."},
        {ViewPlane::XZ, 100,
         "XZ plane, 100 pixels to a unit; frame frm-hand é is at x 1.25  z 3.00."},
        {ViewPlane::ZY, 0.5F, "ZY plane, 0.5 pixels to a unit; frame frm-hand é is at z 3  y -2."},
    };
    for (const auto& [plane, scale, sentence] : planes) {
        EXPECT_EQ(planeSentence(document, planeMapping(plane, 100, 80, scale, {})).toStdString(),
                  std::string("The model in the ") + sentence);
    }

    ViewState state;
    EXPECT_EQ(spaceSentence(document, state).toStdString(), "The model has no mesh.");
    document.Root.HasMesh = true;
    addSquare(document.Root.Mesh, 1, 0);
    document.CameraDistance = 25;
    state.mode = RenderMode::Wireframe;
    state.scaleFactor = 2;
    state.angles = {-viewPi / 2, viewPi / 4, 0};
    EXPECT_EQ(spaceSentence(document, state).toStdString(),
              "The model in wireframe, from 12.5 units away, pitch -90°, yaw 45°; "
              "frame frm-hand é is selected.");
    document.Selected = {};
    EXPECT_EQ(planeSentence(document, planeMapping(ViewPlane::XY, 10, 10, 2, {})).toStdString(),
              "The model in the XY plane, 2 pixels to a unit.");
}

} // namespace
} // namespace korvane::test
