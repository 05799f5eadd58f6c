#include "support/DrawnScenes.h"

#include <cmath>
#include <limits>

namespace korvane::test {
namespace {

constexpr BitmapPixel black = 0xff000000U;
constexpr BitmapPixel red = 0xffff0000U;
constexpr BitmapPixel green = 0xff00ff00U;
constexpr BitmapPixel blue = 0xff0000ffU;
constexpr BitmapPixel white = 0xffffffffU;
const float nan = std::numeric_limits<float>::quiet_NaN();

TEST_P(DrawnScenes, PointsShowWhereTheProjectionSays) {
    Scene scene({plain(1, 0, 0)}, draw);
    // the first three are collinear, which must not hide the face
    scene.mesh().Vertices = {{1, 0, 0}, {1.5F, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}};
    addFace(scene.mesh(), {0, 1, 2, 3, 4});
    EXPECT_EQ(scene.shown(1.5F, 0.5F), red);
    EXPECT_EQ(scene.at(-1.5F, 0.5F), black);
    EXPECT_EQ(scene.at(1.5F, -0.5F), black);
    EXPECT_NEAR(scene.drawn(), scene.unit() * scene.unit(), scene.unit());
    EXPECT_EQ(scene.state.lastDrawnMode, RenderMode::SmoothShading);
}

TEST_P(DrawnScenes, TheLastColumnOfAMatrixMovesNothing) {
    Scene scene({}, draw);
    scene.open("skiff.xsi");
    scene.redraw();
    const QImage before = scene.picture;
    for (const std::size_t element : {3U, 7U, 11U, 15U}) {
        scene.document.Root.Matrix[element] = element == 15 ? 0.0F : 0.5F;
        scene.redraw();
        EXPECT_EQ(scene.picture, before) << element;
    }
}

TEST_P(DrawnScenes, MirroredFramesShowTheMirroredPicture) {
    enum { Flat = 1, NoNormals = 2, Translucent = 4, NearSides = 8, Backwards = 16 };
    // the second from so near that faces cross the clipping planes
    for (const auto& [sample, nearer] : {std::pair{"windmill.xsi", 1.0F}, {"skiff.xsi", 0.3F}}) {
        for (const int setting : {0, int{Flat}, int{NoNormals}, Flat | NoNormals, int{Translucent},
                                  Translucent | NearSides, int{Backwards}}) {
            const auto has = [setting](int option) { return (setting & option) != 0; };
            Scene scene({}, draw);
            scene.open(sample);
            scene.state.mode = has(Flat) ? RenderMode::FlatShading : RenderMode::SmoothShading;
            scene.state.showHiddenTransparent = !has(NearSides);
            scene.document.CameraDistance *= nearer;
            for (MaterialRecord& material : scene.document.Materials) {
                material.FaceColor.alpha = has(Translucent) ? 0.5F : 1.0F;
            }
            for (FrameWalk walk(scene.document.Root); !walk.done(); walk.next()) {
                walk.frame().RenderBackwards = has(Backwards);
                walk.frame().Mesh.HasNormals &= !has(NoNormals);
            }
            scene.redraw();
            const QImage before = scene.picture;
            EXPECT_GT(scene.drawn(), 200 * 200 / 50);
            for (const std::size_t element : {0U, 4U, 8U, 12U}) {
                scene.document.Root.Matrix[element] *= -1; // x runs the other way
            }
            scene.document.CameraCenter.x *= -1;
            scene.state.angles.yaw *= -1;
            scene.redraw();
            EXPECT_LE(differing(before, scene.picture.mirrored(true, false), 4), 0.002)
                << sample << ' ' << setting;
        }
    }
}

TEST_P(DrawnScenes, TranslucentFacesShowTheirFarSidesOnRequest) {
    Scene scene({plain(1, 0, 0, 0.5F), plain(0, 1, 0, 0.5F)}, draw);
    addSquare(scene.mesh(), 3, 1, 0); // the near side comes first in the file
    addSquare(scene.mesh(), 3, -1, 1, true);
    const auto expectShown = [&](BitmapPixel color) {
        EXPECT_LE(difference(scene.shown(), color), 2);
    };
    expectShown(0xff804000U); // half red over half green
    scene.state.showHiddenTransparent = false;
    expectShown(0xff800000U);
    scene.document.Root.RenderBackwards = true;
    expectShown(0xff804000U);
    scene.state.allowTransparent = false;
    expectShown(red);
    scene.state.allowTransparent = true;
    scene.state.mode = RenderMode::FlatShading;
    expectShown(red);
}

TEST_P(DrawnScenes, TranslucentFramesAreMixedInTheirOrderAndHideNone) {
    Scene scene({plain(1, 0, 0, 0.5F), plain(0, 1, 0, 0.5F)}, draw);
    addSquare(scene.mesh(), 3, 1, 0);
    scene.document.Root.Children.assign(1, scene.document.Root);
    FrameRecord& behind = scene.document.Root.Children[0];
    behind.Mesh.FaceSlotIndex = {1};
    for (const float z : {0.0F, -2.0F}) {
        behind.Matrix[14] = z;
        EXPECT_LE(difference(scene.shown(), 0xff408000U), 2) << z;
    }
}

TEST_P(DrawnScenes, MissingMaterialsHaveSubstitutes) {
    Scene scene({plain(1, 0, 0), plain(0, 1, 0)}, draw);
    addSquare(scene.mesh(), 2, 0);
    const auto drawnAs = [&](const std::vector<std::int32_t>& slots) {
        scene.mesh().FaceSlotIndex = slots;
        return scene.shown();
    };
    EXPECT_EQ(drawnAs({0}), red);
    EXPECT_EQ(drawnAs({}), green) << "the last slot";
    // otherwise a new material: grey 0.75 with a full highlight of 0.5
    EXPECT_EQ(drawnAs({7}), white);
    EXPECT_EQ(drawnAs({-1}), white);
    // a substitute does not colour the next frame
    scene.document.Root.Children.assign(1, scene.document.Root);
    FrameRecord& next = scene.document.Root.Children[0];
    next.Mesh.FaceSlotIndex = {0};
    next.Matrix[14] = 1;
    EXPECT_EQ(drawnAs({7}), red);
    next.HasMesh = false;
    // it is opaque even if all materials of the mesh are not
    for (MaterialRecord& material : scene.document.Materials) {
        material.FaceColor.alpha = 0.5F;
    }
    EXPECT_EQ(drawnAs({-1}), white);
    scene.mesh().MaterialSlotList[1] = 9;
    EXPECT_EQ(drawnAs({1}), white);
    scene.mesh().HasMaterials = false;
    EXPECT_EQ(drawnAs({0}), white);
}

TEST_P(DrawnScenes, NormalsAndTextureCoordinatesFallBack) {
    Scene scene({plain(1, 0, 0)}, draw);
    MeshRecord& mesh = scene.mesh();
    addSquare(mesh, 2, 0);
    mesh.HasNormals = true;
    mesh.Normals = {{0.6F, 0, 0.8F}, {0, 0, 0}, {0, 0, nan}};
    const auto everywhere = [](std::uint32_t number) {
        PolygonList faces;
        faces.push_back(std::vector<std::uint32_t>(4, number));
        return faces;
    };
    for (const std::uint32_t odd : {0U, 1U, 2U, 9U}) { // of length 0, not a number, out of range
        mesh.NormalFaces = everywhere(odd);
        EXPECT_LE(difference(scene.shown(), odd == 0 ? 0xffcc0000U : red), 1) << odd;
    }
    mesh.NormalFaces = PolygonList();
    EXPECT_EQ(scene.shown(), red);
    setTexture(scene.document.Materials[0], 1, {{128, 255, 255, 255}});
    EXPECT_EQ(scene.shown(), red) << "no coordinates";
    mesh.HasTexCoords = true;
    mesh.TexCoords = {{0, 0}, {nan, 0}, {1e30F, 0}};
    for (const std::uint32_t odd : {0U, 1U, 5U}) {
        mesh.TexCoordFaces = everywhere(odd);
        EXPECT_LE(difference(scene.shown(), odd == 0 ? 0xff800000U : red), 1) << odd;
    }
    mesh.TexCoordFaces = everywhere(2);
    scene.redraw(); // anything sane
}

TEST_P(DrawnScenes, TexturesStandUpright) {
    Scene scene({plain(1, 1, 1)}, draw);
    MeshRecord& mesh = scene.mesh();
    setTexture(scene.document.Materials[0], 2,
               {{255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {9, 9, 9, 255}});
    mesh.HasTexCoords = true;
    for (const float half : {2.0F, 20.0F}) { // inside the view, and clipped at its edges
        mesh.Vertices.clear();
        mesh.Faces = PolygonList();
        addSquare(mesh, half, 0);
        mesh.TexCoords.clear();
        for (const Vec3& vertex : mesh.Vertices) {
            mesh.TexCoords.push_back({vertex.x / 4 - 2.5F, vertex.y / 4 + 5.5F});
        }
        mesh.TexCoordFaces = mesh.Faces;
        EXPECT_LE(difference(scene.shown(-1, 1), red), 16) << half;
        EXPECT_LE(difference(scene.at(1, 1), green), 16) << half;
        EXPECT_LE(difference(scene.at(-1, -1), blue), 16) << half;
    }
}

TEST_P(DrawnScenes, FacesAcrossTheEdgesOfTheViewAreCut) {
    Scene scene({plain(1, 0, 0)}, draw);
    addSquare(scene.mesh(), 1000, 0);
    scene.redraw();
    EXPECT_EQ(scene.count(red), 200 * 200);
    // a floor from behind the eye to far away fills the lower half
    scene.clearMesh();
    scene.mesh().Vertices = {{-900, -1, 900}, {900, -1, 900}, {900, -1, -900}, {-900, -1, -900}};
    addFace(scene.mesh(), {0, 1, 2, 3});
    scene.document.Materials[0].Emissive = {1, 0, 0}; // seen edge-on, it gets no light
    EXPECT_EQ(scene.shown(0, 0.5F), black);
    EXPECT_NE(scene.at(0, -5), black);
    EXPECT_NE(scene.at(-5.7F, -5.7F), black);
    EXPECT_NEAR(scene.drawn(), 100 * 200, 400);
}

TEST_P(DrawnScenes, WiresTakeTheColourOfTheSelection) {
    Scene scene({plain(1, 1, 1)}, draw);
    addSquare(scene.mesh(), 2, 0);
    scene.state.mode = RenderMode::Wireframe;
    scene.state.angles.yaw = 0; // from behind: nothing is culled
    const std::pair<SelectState, BitmapPixel> states[] = {
        {SelectState::Selected, red}, {SelectState::Descendant, green}, {SelectState::Other, blue}};
    for (const auto& [state, color] : states) {
        scene.document.Root.SelectState = state;
        EXPECT_EQ(scene.shown(), black);
        EXPECT_NEAR(scene.count(color), 16 * scene.unit(), 8);
    }
    scene.state.dots = true;
    scene.redraw();
    EXPECT_EQ(scene.count(blue), 4);
    scene.mesh().Vertices[0] = {-2, -2, -500}; // behind the eye
    scene.redraw();
    EXPECT_EQ(scene.count(blue), 3);
    scene.state.dots = false; // its lines are clipped, not dropped
    scene.redraw();
    EXPECT_GT(scene.drawn(), 12 * scene.unit());
}

TEST_P(DrawnScenes, TheSelectedFrameHasABoxInTheShadedModes) {
    Scene scene({plain(1, 1, 1)}, draw);
    addSquare(scene.mesh(), 2, -2);
    addSquare(scene.mesh(), 2, 1);
    scene.mesh().Faces = PolygonList();
    scene.document.Root.Matrix[12] = 1;
    scene.state.mode = RenderMode::FlatShading;
    scene.redraw();
    EXPECT_EQ(scene.drawn(), 0) << "only selected frames";
    scene.document.Root.SelectState = SelectState::Selected;
    scene.redraw();
    const int box = scene.count(red);
    const float front = 10 / 9.0F;
    const float back = 10 / 12.0F;
    EXPECT_NEAR(box, scene.unit() * (16 * (front + back) + 10 * (front - back)), 10);
    // whole in front of frames drawn later, hidden behind them
    scene.document.Root.Children.resize(1);
    FrameRecord& other = scene.document.Root.Children[0];
    other.HasMesh = true;
    addSquare(other.Mesh, 30, 0);
    for (const auto& [z, pixels] : {std::pair{-4.0F, box}, {2.0F, 0}}) {
        other.Matrix[14] = z;
        scene.redraw();
        EXPECT_EQ(scene.count(red), pixels);
    }
}

TEST_P(DrawnScenes, HiddenFramesAreLeftOutTheirChildrenAreNot) {
    Scene scene({plain(1, 0, 0), plain(0, 1, 0)}, draw);
    addSquare(scene.mesh(), 2, 0);
    FrameRecord child = scene.document.Root;
    child.Mesh.FaceSlotIndex = {1};
    child.Matrix[14] = -1;
    scene.document.Root.Children.push_back(child);
    for (const std::size_t flag : {0U, 1U, 2U}) {
        scene.document.Root.ViewFlags = {true, true, true};
        scene.document.Root.ViewFlags[flag] = false;
        EXPECT_EQ(scene.shown(), flag == 1 ? red : green) << flag;
    }
}

TEST_P(DrawnScenes, WhatCannotBeDrawnIsLeftOut) {
    Scene scene({plain(1, 0, 0)}, draw);
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const float odd : {nan, infinity, -infinity, 3e38F, 1e16F}) {
        for (const RenderMode mode :
             {RenderMode::Wireframe, RenderMode::FlatShading, RenderMode::SmoothShading}) {
            scene.clearMesh();
            MeshRecord& mesh = scene.mesh();
            addSquare(mesh, 1, 0);
            mesh.Vertices[2].x = odd;
            addSquare(mesh, 1, 0);
            for (const auto& corners : {std::vector<std::uint32_t>{0, 1, 99}, {0, 2}, {0}, {}}) {
                addFace(mesh, corners);
            }
            mesh.HasNormals = true;
            mesh.Normals = {{nan, 0, 1}};
            mesh.NormalFaces.push_back(std::vector<std::uint32_t>{0, 7, 0});
            scene.state.mode = mode;
            EXPECT_EQ(scene.shown(), mode == RenderMode::Wireframe ? black : red) << odd;
            const bool drawable = std::abs(odd) <= GetParam().farthest;
            EXPECT_GT(scene.drawn(), 50) << odd;
            EXPECT_LE(scene.drawn(), drawable ? 200 * 200 : 40 * 40) << odd;
        }
    }
    scene.document.Root.Matrix[0] = nan;
    scene.redraw();
    scene.clearMesh();
    scene.redraw();
    EXPECT_EQ(scene.drawn(), 0);
}

} // namespace
} // namespace korvane::test
