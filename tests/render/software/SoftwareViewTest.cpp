#include "render/software/SoftwareView.h"

#include "formats/xsi/XsiReader.h"
#include "render/scene/NothingShown.h"
#include "render/scene/StartCamera.h"
#include "support/Mirrored.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace korvane {
namespace {

using test::addFace;
using test::addSquare;
using test::difference;
using test::plain;
using test::Scene;

constexpr BitmapPixel black = 0xff000000U;
constexpr BitmapPixel red = 0xffff0000U;
constexpr BitmapPixel green = 0xff00ff00U;

TEST(SoftwareView, DrawsWhereTheProjectionSays) {
    Scene scene({plain(1, 0, 0)});
    MeshRecord& mesh = scene.mesh();
    mesh.Vertices = {{1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}};
    addFace(mesh, {0, 1, 2, 3});
    scene.document.Root.SelectState = SelectState::Other;
    scene.redraw();
    const float unit = scene.view.geometry().f / 10; // pixels a unit at that distance
    const auto right = static_cast<int>(100 + 1.5F * unit);
    const auto above = static_cast<int>(100 - 0.5F * unit);
    EXPECT_EQ(scene.at(right, above), red);
    EXPECT_EQ(scene.at(200 - right, above), black);
    EXPECT_EQ(scene.at(right, 200 - above), black);
    EXPECT_NEAR(static_cast<double>(scene.drawn()), double{unit} * unit, unit);
    EXPECT_EQ(scene.state.lastDrawnMode, RenderMode::SmoothShading);
}

TEST(SoftwareView, FacesAreDrawnFromTheirFrontUnlessTheFrameRendersBackwards) {
    Scene scene({plain(1, 0, 0)});
    addSquare(scene.mesh(), 2, 0);
    scene.state.angles.yaw = 0; // from behind
    scene.redraw();
    EXPECT_EQ(scene.drawn(), 0U);
    scene.document.Root.RenderBackwards = true;
    scene.redraw();
    EXPECT_EQ(scene.at(100, 100), red) << "lit from the side that is seen";
    scene.document.Root.RenderBackwards = false;
    scene.document.Root.Matrix[0] = -1; // the sides of a mirrored frame stay what they are
    scene.redraw();
    EXPECT_EQ(scene.drawn(), 0U);
}

TEST(SoftwareView, MirroredFramesShowAsTheirPlainTwins) {
    for (const char* sample : {"skiff.xsi", "windmill.xsi"}) {
        ModelDocument document;
        ASSERT_EQ(FileOpenXSI(QStringLiteral(KORVANE_SAMPLES "/") + QString::fromLatin1(sample),
                              document),
                  ReadStatus::Done);
        SoftwareView view;
        view.resize(320, 240);
        ViewState start;
        startCamera(document, start, view.geometry());
        test::expectMirroredShowsAsItsTwin(
            document,
            [&view](ModelDocument& drawn, ViewState& state) {
                view.redraw(drawn, state);
                return imageOf(view.bitmap()).copy();
            },
            0.0);
    }
}

TEST(SoftwareView, CornersOnOneLineDoNotHideAFace) {
    Scene scene({plain(1, 0, 0)});
    scene.mesh().Vertices = {{-2, -2, 0}, {0, -2, 0}, {2, -2, 0}, {2, 2, 0}, {-2, 2, 0}};
    addFace(scene.mesh(), {0, 1, 2, 3, 4});
    addFace(scene.mesh(), {});
    addFace(scene.mesh(), {0});
    addFace(scene.mesh(), {0, 2});
    scene.redraw();
    EXPECT_EQ(scene.at(100, 100), red);
}

TEST(SoftwareView, TranslucentFacesAreMixedFromFarToNear) {
    Scene scene({plain(1, 0, 0, 0.5F), plain(0, 1, 0, 0.5F), plain(0, 0, 1, 0.5F), plain(1, 1, 1)});
    MeshRecord& mesh = scene.mesh();
    addSquare(mesh, 2, 1, 0); // near, far, middle in the file, before an opaque one
    addSquare(mesh, 2, -1, 1);
    addSquare(mesh, 2, 0, 2);
    addSquare(mesh, 2, -2, 3);
    scene.redraw();
    const BitmapPixel mixed = 0xffa04060U;
    // white, half green: 80ff80; half blue: 4080c0; half red: a04060
    EXPECT_LE(difference(scene.at(100, 100), mixed), 2);
    scene.state.angles.yaw = 0; // from behind the white one is culled, and the order is the reverse
    scene.redraw();
    EXPECT_LE(difference(scene.at(100, 100), 0xff208040U), 2) << "red, blue, green over black";
    scene.state.showHiddenTransparent = false;
    scene.redraw();
    EXPECT_EQ(scene.drawn(), 0U) << "far sides are not shown";
    scene.state.angles.yaw = viewPi;
    scene.redraw();
    EXPECT_LE(difference(scene.at(100, 100), mixed), 2);
    for (const bool flat : {false, true}) {
        scene.state.allowTransparent = flat;
        scene.state.mode = flat ? RenderMode::FlatShading : RenderMode::SmoothShading;
        scene.redraw();
        EXPECT_EQ(scene.at(100, 100), red) << "opaque, the nearest wins";
    }
}

TEST(SoftwareView, TranslucentFacesAtOneDepthKeepTheirOrder) {
    Scene scene({plain(1, 0, 0, 0.5F), plain(0, 1, 0, 0.5F)});
    addSquare(scene.mesh(), 2, 0, 0);
    addSquare(scene.mesh(), 2, 0, 1);
    scene.redraw();
    EXPECT_LE(difference(scene.at(100, 100), 0xff408000U), 2);
}

TEST(SoftwareView, MaterialsAreFoundAsFarAsTheyGo) {
    Scene scene({plain(1, 0, 0), plain(0, 1, 0)});
    MeshRecord& mesh = scene.mesh();
    addSquare(mesh, 2, 0, 0);
    const auto drawnAs = [&] {
        scene.redraw();
        return scene.at(100, 100);
    };
    EXPECT_EQ(drawnAs(), red);
    mesh.FaceSlotIndex.clear();
    EXPECT_EQ(drawnAs(), green) << "the last slot";
    // a new material: grey 0.75 and a full highlight of half
    constexpr BitmapPixel fresh = 0xffffffffU;
    mesh.FaceSlotIndex = {7};
    EXPECT_EQ(drawnAs(), fresh);
    mesh.FaceSlotIndex = {-1};
    EXPECT_EQ(drawnAs(), fresh);
    mesh.FaceSlotIndex = {1};
    mesh.MaterialSlotList[1] = 9;
    EXPECT_EQ(drawnAs(), fresh);
    mesh.HasMaterials = false;
    EXPECT_EQ(drawnAs(), fresh);
    scene.state.mode = RenderMode::FlatShading;
    EXPECT_EQ(drawnAs(), 0xff808080U) << "flat shading goes over to the specular colour";
}

TEST(SoftwareView, NormalsAndTextureCoordinatesFallBack) {
    Scene scene({plain(1, 0, 0)});
    MeshRecord& mesh = scene.mesh();
    addSquare(mesh, 2, 0);
    mesh.HasNormals = true;
    mesh.Normals = {{0.6F, 0, 0.8F}, {0, 0, 0}, {0, 0, NAN}};
    const auto shade = [&](std::vector<std::uint32_t> normals) {
        mesh.NormalFaces.clear();
        mesh.NormalFaces.push_back(normals);
        scene.mesh().ListRevision.shapeChanged();
        scene.redraw();
        return scene.at(100, 100);
    };
    EXPECT_EQ(shade({0, 0, 0, 0}), 0xffcc0000U);
    EXPECT_EQ(shade({1, 1, 1, 1}), red) << "no length";
    EXPECT_EQ(shade({2, 2, 2, 2}), red) << "no number";
    EXPECT_EQ(shade({9, 9, 9, 9}), red) << "leads nowhere";
    EXPECT_EQ(shade({}), red);
    auto image = std::make_shared<TextureImage>();
    image->pixels = {{128, 255, 255, 255}};
    scene.document.Materials[0].HasTexture = true;
    scene.document.Materials[0].TextureImage = image;
    EXPECT_EQ(shade({}), red) << "no coordinates";
    mesh.HasTexCoords = true;
    mesh.TexCoords = {{0, 0}, {NAN, 0}, {1e30F, 0}};
    const auto texture = [&](std::uint32_t coordinates) {
        mesh.TexCoordFaces.clear();
        mesh.TexCoordFaces.push_back(std::vector<std::uint32_t>(4, coordinates));
        return shade({});
    };
    EXPECT_EQ(texture(0), 0xff800000U);
    for (const std::uint32_t coordinates : {1U, 5U}) {
        EXPECT_EQ(texture(coordinates), red) << coordinates;
    }
    texture(2); // anything sane
}

TEST(SoftwareView, TexturesStandUpright) {
    Scene scene({plain(1, 1, 1)});
    MeshRecord& mesh = scene.mesh();
    addSquare(mesh, 2, 0);
    auto image = std::make_shared<TextureImage>();
    image->width = image->height = 2;
    image->pixels = {{255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {9, 9, 9, 255}};
    scene.document.Materials[0].HasTexture = true;
    scene.document.Materials[0].TextureImage = image;
    mesh.HasTexCoords = true;
    mesh.TexCoords = {{-3, 5}, {-2, 5}, {-2, 6}, {-3, 6}}; // whole repeats away
    mesh.TexCoordFaces = mesh.Faces;
    scene.redraw();
    const auto quarter = static_cast<int>(scene.view.geometry().f / 10);
    EXPECT_LE(difference(scene.at(100 - quarter, 100 - quarter), red), 16);
    EXPECT_LE(difference(scene.at(100 + quarter, 100 - quarter), green), 16);
    EXPECT_LE(difference(scene.at(100 - quarter, 100 + quarter), 0xff0000ffU), 16);
}

TEST(SoftwareView, DenseMeshesKeepTheirSmallFaces) {
    Scene scene({plain(1, 0, 0)});
    MeshRecord& mesh = scene.mesh();
    constexpr int side = 120;
    for (int i = 0; i < side * side; ++i) {
        const auto at = [](int k) { return static_cast<float>(k) / (side - 1) * 4 - 2; };
        mesh.Vertices.push_back({at(i % side), at(i / side), 0});
    }
    for (std::uint32_t i = 0; i + side < side * side; ++i) {
        if (i % side + 1 < side) {
            addFace(mesh, {i, i + 1, i + side + 1, i + side});
        }
    }
    scene.redraw();
    const std::size_t drawn = scene.drawn();
    const float size = 4 * scene.view.geometry().f / 10;
    EXPECT_NEAR(static_cast<double>(drawn), double{size} * size, 2.0 * size);
    // a small face beside large ones is left out, and so is it when its corners are moved together
    scene.clearMesh();
    addSquare(mesh, 2, 0);
    mesh.Vertices.insert(mesh.Vertices.end(), {{2.2F, 0, 0}, {2.3F, 0, 0}, {2.3F, 0.1F, 0}});
    addFace(mesh, {4, 5, 6});
    scene.redraw();
    EXPECT_EQ(scene.at(static_cast<int>(100 + 2.27F * scene.view.geometry().f / 10), 99), black);
    scene.state.backFaceThreshold = 0;
    scene.redraw();
    EXPECT_EQ(scene.at(static_cast<int>(100 + 2.27F * scene.view.geometry().f / 10), 99), red)
        << "the threshold decides";
}

TEST(SoftwareView, ALargeFaceTakesNoneOfManySmallOnesAway) {
    Scene scene({plain(1, 0, 0), plain(0, 1, 0)});
    constexpr int side = 40;
    for (int i = 0; i < side * side; ++i) {
        const auto at = [](int k) { return static_cast<float>(k) / side * 2 - 1; };
        scene.mesh().Vertices.insert(scene.mesh().Vertices.end(),
                                     {{at(i % side), at(i / side), 0},
                                      {at(i % side + 1), at(i / side), 0},
                                      {at(i % side), at(i / side + 1), 0}});
        const auto first = static_cast<std::uint32_t>(3 * i);
        addFace(scene.mesh(), {first, first + 1, first + 2});
    }
    scene.mesh().FaceSlotIndex.assign(side * side, 0);
    const auto reds = [&] {
        scene.redraw();
        return 200U * 200U - countOtherThan(imageOf(scene.view.bitmap()), red);
    };
    const std::size_t alone = reds();
    EXPECT_GT(alone, 300U);
    addSquare(scene.mesh(), 5, -1, 1);
    EXPECT_EQ(reds(), alone);
    EXPECT_EQ(scene.at(100, 40), green);
}

TEST(SoftwareView, FacesAcrossTheEdgesOfTheViewAreCut) {
    Scene scene({plain(1, 0, 0)});
    addSquare(scene.mesh(), 1000, 0);
    scene.redraw();
    EXPECT_EQ(scene.drawn(), 200U * 200U);
    // a floor from behind the eye to far away fills the lower half
    scene.clearMesh();
    scene.mesh().Vertices = {{-900, -1, 900}, {900, -1, 900}, {900, -1, -900}, {-900, -1, -900}};
    addFace(scene.mesh(), {0, 1, 2, 3});
    scene.document.Materials[0].Emissive = {1, 0, 0}; // seen edge on, it takes no light
    scene.redraw();
    EXPECT_NE(scene.at(100, 190), black);
    EXPECT_NE(scene.at(3, 199), black);
    EXPECT_EQ(scene.at(100, 90), black);
    EXPECT_NEAR(static_cast<double>(scene.drawn()), 100 * 200, 400);
}

TEST(SoftwareView, WireframeUsesTheColoursOfTheSelection) {
    Scene scene({plain(1, 1, 1)});
    addSquare(scene.mesh(), 2, 0);
    scene.state.mode = RenderMode::Wireframe;
    scene.state.angles.yaw = 0; // from behind: nothing is culled
    const auto edge = [&] {
        scene.redraw();
        return scene.at(100, static_cast<int>(100 - 2 * scene.view.geometry().f / 10));
    };
    EXPECT_EQ(edge(), 0xff0000ffU);
    EXPECT_EQ(scene.at(100, 100), black);
    scene.document.Root.SelectState = SelectState::Descendant;
    EXPECT_EQ(edge(), green);
    scene.document.Root.SelectState = SelectState::Selected;
    EXPECT_EQ(edge(), red);
    scene.state.dots = true;
    EXPECT_EQ(edge(), black);
    EXPECT_EQ(scene.drawn(), 4U);
    scene.state.dots = false;
    scene.mesh().Vertices[0] = {-2, -2, 500}; // behind the eye: its lines are cut, not dropped
    scene.mesh().ListRevision.shapeChanged();
    scene.redraw();
    EXPECT_GT(scene.drawn(), 100U);
    // in the shaded modes the selected frame has its box around it
    scene.clearMesh();
    addSquare(scene.mesh(), 2, 0);
    scene.state.mode = RenderMode::FlatShading;
    EXPECT_EQ(edge(), red);
    EXPECT_EQ(scene.at(100, 100), black);
}

TEST(SoftwareView, HiddenFramesAreLeftOutTheirChildrenAreNot) {
    Scene scene({plain(1, 0, 0), plain(0, 1, 0)});
    addSquare(scene.mesh(), 2, 0);
    FrameRecord child = scene.document.Root;
    child.Mesh.FaceSlotIndex = {1};
    child.Matrix[14] = -1;
    scene.document.Root.Children.push_back(child);
    for (const std::size_t flag : {0U, 2U}) {
        scene.document.Root.ViewFlags = {true, true, true};
        scene.document.Root.ViewFlags[flag] = false;
        scene.redraw();
        EXPECT_EQ(scene.at(100, 100), green) << flag;
    }
    scene.document.Root.ViewFlags = {true, false, true};
    scene.redraw();
    EXPECT_EQ(scene.at(100, 100), red);
}

TEST(NothingShown, IsExplained) {
    Scene scene({plain(1, 0, 0, 0.0F), plain(0, 1, 0)});
    const auto reason = [&scene] {
        return whyNothingShows(scene.document, scene.state).toStdString();
    };
    EXPECT_EQ(reason(), "The model has no mesh.");
    addSquare(scene.mesh(), 1, 0, 0);
    EXPECT_EQ(reason(), "Every mesh shown has opacity 0.");
    scene.document.Root.ViewFlags[2] = false;
    EXPECT_EQ(reason(), "Every mesh is hidden.");
    scene.document.Root.Children.push_back(scene.document.Root);
    FrameRecord& child = scene.document.Root.Children[0];
    child.ViewFlags[2] = true;
    EXPECT_EQ(reason(), "Every mesh shown has opacity 0.");
    scene.state.allowTransparent = false;
    EXPECT_EQ(reason(), "");
    scene.state.allowTransparent = true;
    for (const std::int32_t slot : {1, 2, -1}) { // of the other material, or of none at all
        child.Mesh.FaceSlotIndex = {slot};
        EXPECT_EQ(reason(), "") << slot;
    }
    child.HasMesh = false;
    EXPECT_EQ(reason(), "Every mesh is hidden.");
}

TEST(SoftwareView, WhatCannotBeDrawnIsLeftOut) {
    Scene scene({plain(1, 0, 0)});
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float odd : {nan, infinity, -infinity, 3e38F, 1e16F}) {
        for (const RenderMode mode :
             {RenderMode::Wireframe, RenderMode::FlatShading, RenderMode::SmoothShading}) {
            scene.clearMesh();
            addSquare(scene.mesh(), 1, 0);
            scene.mesh().Vertices[2].x = odd;
            addSquare(scene.mesh(), 1, 0);
            addFace(scene.mesh(), {0, 1, 99});
            scene.state.mode = mode;
            scene.redraw();
            EXPECT_GT(scene.drawn(), 50U) << odd;
            EXPECT_LE(scene.drawn(), 40U * 40U) << odd;
        }
    }
    scene.clearMesh();
    scene.redraw();
    EXPECT_EQ(scene.drawn(), 0U);
}

TEST(DrawCache, IsBuiltWhenWhatItDependsOnChangedAndBelongsToOneFrame) {
    Scene scene({plain(1, 0, 0)});
    addSquare(scene.mesh(), 1, 0);
    FrameRecord& frame = scene.document.Root;
    const auto builds = [](FrameRecord& of) { return drawCache(of).refresh(of.Mesh, of.Matrix); };
    EXPECT_TRUE(builds(frame));
    EXPECT_FALSE(builds(frame));
    scene.redraw();
    EXPECT_FALSE(builds(frame)) << "drawing changes nothing";
    frame.Matrix[12] = 5;
    EXPECT_TRUE(builds(frame));
    EXPECT_EQ(drawCache(frame).WorldVertices[0], (Vec3{4, -1, 0}));
    addSquare(frame.Mesh, 1, 0);
    EXPECT_TRUE(builds(frame));
    EXPECT_EQ(drawCache(frame).WorldCache3.size(), 2U);
    FrameRecord copy = frame;
    EXPECT_TRUE(drawCache(copy).WorldVertices.empty());
    EXPECT_EQ(copy, frame);
    EXPECT_TRUE(builds(copy));
    copy = frame;
    EXPECT_TRUE(drawCache(copy).WorldVertices.empty());
    EXPECT_TRUE(builds(copy));
    // a mesh takes its revision along, and leaves another behind
    FrameRecord taker = frame;
    taker.Mesh = std::move(copy.Mesh);
    EXPECT_TRUE(builds(taker));
    EXPECT_FALSE(builds(taker));
    EXPECT_TRUE(builds(copy));
    EXPECT_FALSE(builds(frame));
}

} // namespace
} // namespace korvane
