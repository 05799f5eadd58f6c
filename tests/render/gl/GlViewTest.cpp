#include "edit/history/EditHistory.h"
#include "formats/xsi/XsiReader.h"
#include "render/gl/GlOffscreen.h"
#include "render/scene/StartCamera.h"
#include "support/Display.h"
#include "support/Mirrored.h"
#include "support/Skip.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace korvane::test {
namespace {

constexpr std::int32_t side = 512;

/// Skips clearly where a machine has no OpenGL.
class GlViewTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (gl_.status() != GlProbe::Works) {
            KORVANE_SKIP("no OpenGL here");
        }
    }
    QImage glPicture() {
        gl_.redraw(document_, state_);
        return gl_.picture();
    }
    QImage softwarePicture() {
        SoftwareView view;
        view.resize(side, side);
        view.redraw(document_, state_);
        state_.lastDrawnMode.reset();
        return imageOf(view.bitmap()).copy();
    }
    void open(const char* sample) {
        document_ = ModelDocument();
        const QString name = QStringLiteral(KORVANE_SAMPLES "/") + QString::fromLatin1(sample);
        ASSERT_EQ(FileOpenXSI(name, document_), ReadStatus::Done);
        startCamera(document_, state_, ViewGeometry(side, side));
        // black highlights: those of two views need not agree
        for (MaterialRecord& material : document_.Materials) {
            material.Specular = {};
        }
    }
    bool drawnAt(const QImage& picture, int x, int y) const {
        return picture.pixel(x, y) != state_.colors.background;
    }
    /// What is drawn at a place counted in hundredths of the picture.
    BitmapPixel glPixel(Scene& scene, int x, int y) {
        gl_.redraw(scene.document, scene.state);
        return gl_.picture().pixel(x * side / 100, y * side / 100);
    }

    GlOffscreen gl_{side, side};
    ModelDocument document_;
    ViewState state_;
};

constexpr CameraAngles cameras[] = {{}, {0.2F, 1.0F, 0}, {-0.4F, 2.6F, 0}};

TEST_F(GlViewTest, ShowsTheSamplesAsTheSoftwareViewDoes) {
    for (const char* sample : {"windmill.xsi", "skiff.xsi", "lighthouse.x"}) {
        open(sample);
        for (const CameraAngles& angles : cameras) {
            state_.angles = angles;
            const QImage gl = glPicture();
            const QImage software = softwarePicture();
            double both = 0;
            double either = 0;
            double differences = 0;
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    const bool inGl = drawnAt(gl, x, y);
                    const bool inSoftware = drawnAt(software, x, y);
                    either += inGl || inSoftware ? 1 : 0;
                    if (inGl && inSoftware) {
                        ++both;
                        const QColor a = gl.pixelColor(x, y);
                        const QColor b = software.pixelColor(x, y);
                        differences +=
                            (std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                             std::abs(a.blue() - b.blue())) /
                            3.0;
                    }
                }
            }
            ASSERT_GT(both, side * side / 50.0) << sample;
            EXPECT_GE(both / either, 0.98) << sample << " yaw " << angles.yaw;
            EXPECT_LE(differences / both, 6.0) << sample << " yaw " << angles.yaw;
        }
    }
}

TEST_F(GlViewTest, TheLastColumnOfAFramesMatrixMovesNothing) {
    open("skiff.xsi");
    state_.angles = cameras[1];
    const QImage before = glPicture();
    for (const std::size_t element : {3U, 11U, 15U}) {
        document_.Root.Matrix[element] = element == 15 ? 0.0F : 0.5F;
        EXPECT_EQ(glPicture(), before) << element;
    }
    document_.Root.Matrix = Matrix4();
    const QImage software = softwarePicture();
    document_.Root.Matrix[15] = 0;
    EXPECT_EQ(softwarePicture(), software);
}

TEST_F(GlViewTest, RecordsAMeshOnceItRestsAndNeverForMoving) {
    open("windmill.xsi");
    const auto turn = [this](int rounds) {
        for (int round = 0; round < rounds; ++round) {
            state_.angles.yaw += 0.1F;
            gl_.redraw(document_, state_);
        }
        return gl_.view().counts().recorded;
    };
    EXPECT_EQ(turn(GlLists::drawsBeforeRecording), 0U);
    const std::size_t recorded = turn(1);
    EXPECT_GT(recorded, 0U);
    const std::size_t uploads = gl_.view().counts().uploads;
    EXPECT_EQ(turn(10), recorded);
    document_.Root.Children.at(0).Matrix[12] += 0.5F;
    EXPECT_EQ(turn(10), recorded);
    EXPECT_EQ(gl_.view().counts().uploads, uploads);
    // another colour shows at once, and is recorded in its turn
    for (MaterialRecord& material : document_.Materials) {
        material.FaceColor = {1, 0, 0, 1};
    }
    EXPECT_GT(turn(GlLists::drawsBeforeRecording + 1), recorded);
    EXPECT_EQ(gl_.view().counts().errors, 0U);
    // out of sight nothing is drawn, and nothing is forgotten
    const std::size_t meshes = gl_.view().counts().meshes;
    const std::size_t lists = gl_.view().listCount();
    document_.CameraCenter.x += 1e5F;
    gl_.redraw(document_, state_);
    EXPECT_EQ(gl_.view().counts().meshes, meshes);
    EXPECT_EQ(gl_.view().listCount(), lists);
    // hidden, too
    document_.CameraCenter.x -= 1e5F;
    document_.Root.Children.at(0).ViewFlags[0] = false;
    gl_.redraw(document_, state_);
    EXPECT_EQ(gl_.view().listCount(), lists);
    document_ = ModelDocument();
    gl_.redraw(document_, state_);
    EXPECT_EQ(gl_.view().listCount(), 0U);
}

std::shared_ptr<const TextureImage> image(std::int32_t width, std::int32_t height,
                                          const std::vector<Rgba8>& columns) {
    auto made = std::make_shared<TextureImage>();
    made->width = width;
    made->height = height;
    made->pixels.clear();
    for (std::int32_t i = 0; i < width * height; ++i) {
        const std::int32_t column = i % width * static_cast<std::int32_t>(columns.size()) / width;
        made->pixels.push_back(columns[static_cast<std::size_t>(column)]);
    }
    return made;
}

TEST_F(GlViewTest, TexturesOfAnySizeFollowTheirMaterials) {
    const Rgba8 red{255, 0, 0, 255};
    const Rgba8 green{0, 255, 0, 255};
    Scene scene({plain(1, 1, 1)});
    addSquare(scene.mesh(), 4, 0);
    scene.mesh().HasTexCoords = true;
    scene.mesh().TexCoords = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    const std::vector<std::uint32_t> corners = {0, 1, 2, 3};
    scene.mesh().TexCoordFaces.push_back(corners);
    MaterialRecord& material = scene.document.Materials[0];
    material.HasTexture = true;
    std::size_t uploads = 0;
    // the widest one has to be scaled down for any driver of today
    for (const std::int32_t width : {2, 5, 7, 100, 70000}) {
        for (const std::int32_t height : {1, 5}) {
            material.TextureImage = image(width, height, {red, red, green, green});
            EXPECT_LE(difference(glPixel(scene, 33, 50), 0xffff0000U), 4) << width;
            EXPECT_LE(difference(glPixel(scene, 67, 50), 0xff00ff00U), 4) << width;
            EXPECT_EQ(gl_.view().counts().uploads, ++uploads);
            EXPECT_EQ(gl_.view().textureCount(), 1U);
        }
    }
    // row 0 is on top, where v is 1
    auto upright = std::make_shared<TextureImage>(*image(1, 4, {red}));
    upright->pixels[2] = upright->pixels[3] = green;
    material.TextureImage = upright;
    EXPECT_LE(difference(glPixel(scene, 50, 35), 0xffff0000U), 2);
    EXPECT_LE(difference(glPixel(scene, 50, 65), 0xff00ff00U), 2);
    // wireframe turns textures off, and the mesh turns them on again
    scene.state.mode = RenderMode::Wireframe;
    glPixel(scene, 50, 50);
    scene.state.mode = RenderMode::SmoothShading;
    EXPECT_LE(difference(glPixel(scene, 50, 35), 0xffff0000U), 2);
    material.HasTexture = false;
    EXPECT_LE(difference(glPixel(scene, 50, 35), 0xffffffffU), 2);
    EXPECT_EQ(gl_.view().textureCount(), 0U);
    EXPECT_EQ(gl_.view().counts().errors, 0U);
}

TEST_F(GlViewTest, EditsOfARecordedMeshShowAtOnce) {
    Scene scene({plain(1, 0, 0), plain(1, 1, 1)});
    addSquare(scene.mesh(), 4, 0);
    scene.mesh().HasTexCoords = true;
    scene.mesh().TexCoords = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    const std::vector<std::uint32_t> corners = {0, 1, 2, 3};
    scene.mesh().TexCoordFaces.push_back(corners);
    MaterialRecord& textured = scene.document.Materials[1];
    textured.HasTexture = true;
    textured.TextureImage = image(100, 1, {{0, 255, 0, 255}, {0, 0, 255, 255}});
    const auto recorded = [&] {
        for (int round = 0; round < GlLists::drawsBeforeRecording; ++round) {
            gl_.redraw(scene.document, scene.state);
        }
        return glPixel(scene, 33, 50);
    };
    EditHistory history;
    EXPECT_EQ(recorded(), 0xffff0000U);
    history.faceSlot(scene.document, FramePath(), 0, 1);
    EXPECT_EQ(recorded(), 0xff00ff00U);
    const std::vector<Vec2> before = scene.mesh().TexCoords;
    std::vector<Vec2> after = before;
    for (Vec2& at : after) {
        at.u += 0.5F;
    }
    const std::vector<std::int32_t> numbers = {0, 1, 2, 3};
    history.texCoords(scene.document, FramePath(), numbers, before, after);
    EXPECT_EQ(recorded(), 0xff0000ffU);
    history.undo(scene.document);
    EXPECT_EQ(glPixel(scene, 33, 50), 0xff00ff00U);
    scene.mesh().HasTexCoords = false;
    EXPECT_EQ(recorded(), 0xffffffffU);
}

TEST_F(GlViewTest, TranslucentMeshesShowTheirFarSidesWhenTold) {
    Scene scene({plain(1, 0, 0, 0.5F), plain(0, 1, 0, 0.5F)});
    addSquare(scene.mesh(), 3, 1, 0); // the near side comes first in the file
    addSquare(scene.mesh(), 3, -1, 1);
    std::vector<std::uint32_t> away = {7, 6, 5, 4};
    PolygonList faces;
    faces.push_back(scene.mesh().Faces[0]);
    faces.push_back(away);
    scene.mesh().Faces = faces;
    EXPECT_LE(difference(glPixel(scene, 50, 50), 0xff804000U), 2) << "half red over half green";
    scene.state.showHiddenTransparent = false;
    EXPECT_LE(difference(glPixel(scene, 50, 50), 0xff800000U), 2);
    scene.document.Root.RenderBackwards = true;
    EXPECT_LE(difference(glPixel(scene, 50, 50), 0xff804000U), 2);
    for (const RenderMode mode : {RenderMode::SmoothShading, RenderMode::FlatShading}) {
        scene.state.mode = mode;
        scene.state.allowTransparent = mode == RenderMode::FlatShading;
        EXPECT_LE(difference(glPixel(scene, 50, 50), 0xffff0000U), 2) << "opaque";
    }
}

TEST_F(GlViewTest, MirroredFramesShowAsTheirPlainTwins) {
    open("skiff.xsi");
    expectMirroredShowsAsItsTwin(
        document_,
        [this](ModelDocument& drawn, ViewState& state) {
            gl_.redraw(drawn, state);
            return gl_.picture();
        },
        0.002, true);
}

TEST_F(GlViewTest, TheOrderOfTranslucentFramesHidesNone) {
    Scene scene({plain(1, 0, 0, 0.5F), plain(0, 1, 0, 0.5F)});
    addSquare(scene.mesh(), 3, 1, 0);
    FrameRecord behind = scene.document.Root;
    behind.Mesh.FaceSlotIndex = {1};
    behind.Matrix[14] = -2;
    scene.document.Root.Children.push_back(behind);
    // mixed in the order of the frames
    EXPECT_LE(difference(glPixel(scene, 50, 50), 0xff408000U), 2);
    EXPECT_EQ(gl_.view().counts().errors, 0U);
}

TEST_F(GlViewTest, ColoursOfWiresGoByTheSelection) {
    Scene scene({plain(1, 1, 1)});
    addSquare(scene.mesh(), 3, 0);
    addSquare(scene.mesh(), 1, 0);
    scene.state.mode = RenderMode::Wireframe;
    const auto pixelsOf = [&](BitmapPixel color) {
        gl_.redraw(scene.document, scene.state);
        return side * side - static_cast<int>(countOtherThan(gl_.picture(), color));
    };
    const ViewColors& colors = scene.state.colors;
    const std::pair<SelectState, BitmapPixel> states[] = {
        {SelectState::Selected, colors.selected},
        {SelectState::Descendant, colors.selectedChild},
        {SelectState::Other, colors.unselected}};
    for (const auto& [state, color] : states) {
        scene.document.Root.SelectState = state;
        EXPECT_NEAR(pixelsOf(color), 1064 + 1064 / 3, 100) << "four lines each";
    }
    scene.state.dots = true;
    EXPECT_EQ(pixelsOf(colors.unselected), 8);
    // in the shaded modes the selected frame has a box, and nobody else
    scene.state.mode = RenderMode::FlatShading;
    scene.mesh().Faces.clear();
    scene.mesh().ListRevision.shapeChanged();
    EXPECT_EQ(pixelsOf(colors.background), side * side);
    scene.document.Root.SelectState = SelectState::Selected;
    const int box = pixelsOf(colors.selected);
    EXPECT_GT(box, 500);
    // it stays whole before what is drawn later and lies behind it
    FrameRecord behind = scene.document.Root;
    behind.SelectState = SelectState::Descendant;
    addSquare(behind.Mesh, 30, -2);
    scene.document.Root.Children.push_back(behind);
    EXPECT_EQ(pixelsOf(colors.selected), box);
}

TEST_F(GlViewTest, HostileMeshesAreLeftOut) {
    Scene scene({plain(1, 1, 1)});
    addSquare(scene.mesh(), 3, 0);
    const float nowhere = std::numeric_limits<float>::quiet_NaN();
    scene.mesh().Vertices.push_back({nowhere, 0, 0});
    addFace(scene.mesh(), {0, 1, 99});
    addFace(scene.mesh(), {0, 1, 4});
    addFace(scene.mesh(), {0, 1});
    addFace(scene.mesh(), {});
    scene.mesh().HasNormals = true;
    scene.mesh().Normals = {{nowhere, 0, 1}};
    const std::vector<std::uint32_t> normals = {0, 7, 0};
    scene.mesh().NormalFaces.push_back(normals);
    for (const RenderMode mode :
         {RenderMode::Wireframe, RenderMode::FlatShading, RenderMode::SmoothShading}) {
        scene.state.mode = mode;
        const BitmapPixel inside = glPixel(scene, 50, 50);
        EXPECT_EQ(inside,
                  mode == RenderMode::Wireframe ? scene.state.colors.background : 0xffffffffU);
    }
    scene.document.Root.Matrix[0] = nowhere;
    glPixel(scene, 50, 50);
    EXPECT_EQ(gl_.view().counts().errors, 0U);
}

} // namespace
} // namespace korvane::test

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (const auto status = korvane::test::statusWithoutDisplay()) {
        return *status;
    }
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
