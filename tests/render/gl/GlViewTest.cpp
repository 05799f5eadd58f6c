#include "edit/history/SlotEdits.h"
#include "render/gl/GlOffscreen.h"
#include "support/Display.h"
#include "support/DrawnScenes.h"

#include <QGuiApplication>

#include <limits>

namespace korvane::test {
namespace {

Draw byOpenGl(int side = 200,
              const std::shared_ptr<GlOffscreen>& gl = std::make_shared<GlOffscreen>()) {
    if (gl->status() != GlStatus::Works) {
        return {};
    }
    return [side, gl, bitmap = Bitmap()](ModelDocument& document, ViewState& state) mutable {
        EXPECT_EQ(gl->redraw(document, state, side, side), GlStatus::Works);
        EXPECT_EQ(gl->read(bitmap), GlStatus::Works);
        EXPECT_EQ(gl->view().counts().errors, 0U);
        return imageOf(bitmap).copy();
    };
}

const Renderer openGl = {"by OpenGL", [] { return byOpenGl(); }, std::numeric_limits<float>::max()};
INSTANTIATE_TEST_SUITE_P(OpenGl, DrawnScenes, testing::Values(openGl));

/// Covers what only this renderer has. Skips on machines without OpenGL.
class GlViewTest : public testing::Test {
  protected:
    static constexpr int side = 512;

    void SetUp() override {
        if (!scene_.draw) {
            KORVANE_SKIP("no OpenGL here");
        }
    }
    /// Adds a square of half side 4 that shows the whole texture.
    void addTexturedSquare() {
        addSquare(scene_.mesh(), 4, 0);
        scene_.mesh().HasTexCoords = true;
        scene_.mesh().TexCoords = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
        scene_.mesh().TexCoordFaces = scene_.mesh().Faces;
    }

    std::shared_ptr<GlOffscreen> gl_ = std::make_shared<GlOffscreen>();
    Scene scene_{{plain(1, 0, 0), plain(1, 1, 1)}, byOpenGl(side, gl_)};
    ModelDocument& document_ = scene_.document;
    ViewState& state_ = scene_.state;
};

TEST_F(GlViewTest, ShowsTheSamplesAsTheSoftwareViewDoes) {
    const Draw software = bySoftware(side, side);
    for (const char* sample : {"windmill.xsi", "skiff.xsi", "lighthouse.x"}) {
        scene_.open(sample, {side, side});
        // black highlights, as those of two views need not agree
        for (MaterialRecord& material : document_.Materials) {
            material.Specular = {};
        }
        for (const CameraAngles& angles : {CameraAngles(), {0.2F, 1.0F, 0}, {-0.4F, 2.6F, 0}}) {
            state_.angles = angles;
            scene_.redraw();
            ASSERT_GT(scene_.drawn(), side * side / 50) << sample;
            EXPECT_LE(differing(scene_.picture, software(document_, state_), 6), 0.01)
                << sample << " yaw " << angles.yaw;
        }
    }
}

TEST_F(GlViewTest, RecordsAMeshOnceItRestsAndNotWhenItMoves) {
    scene_.open("windmill.xsi");
    const GlView& view = gl_->view();
    const auto turn = [&](int rounds) {
        for (int round = 0; round < rounds; ++round) {
            state_.angles.yaw += 0.1F;
            scene_.draw(document_, state_);
        }
        return view.counts().recorded;
    };
    EXPECT_EQ(turn(GlLists::drawsBeforeRecording), 0U);
    const std::size_t recorded = turn(1);
    EXPECT_GT(recorded, 0U);
    const std::size_t uploads = view.counts().uploads;
    EXPECT_EQ(turn(10), recorded);
    FrameRecord& child = document_.Root.Children.at(0);
    child.Matrix[12] += 0.5F;
    EXPECT_EQ(turn(10), recorded);
    EXPECT_EQ(view.counts().uploads, uploads);
    const QImage opaque = scene_.draw(document_, state_);
    for (MaterialRecord& material : document_.Materials) {
        material.FaceColor = {1, 0, 0, 0.5F};
    }
    EXPECT_NE(scene_.draw(document_, state_), opaque);
    EXPECT_EQ(turn(10), recorded);
    // out of sight or hidden, frames are not drawn but keep their lists
    const auto before = std::pair(view.counts().meshes, view.listCount());
    document_.CameraCenter.x += 1e5F;
    turn(1);
    EXPECT_EQ(std::pair(view.counts().meshes, view.listCount()), before);
    document_.CameraCenter.x -= 1e5F;
    child.ViewFlags[0] = false;
    turn(1);
    EXPECT_EQ(view.listCount(), before.second);
    document_ = ModelDocument();
    turn(1);
    EXPECT_EQ(view.listCount(), 0U);
}

TEST_F(GlViewTest, TexturesOfAnySizeFollowTheirMaterials) {
    addTexturedSquare();
    scene_.mesh().FaceSlotIndex = {1};
    MaterialRecord& material = document_.Materials[1];
    const Rgba8 red{255, 0, 0, 255};
    const Rgba8 green{0, 255, 0, 255};
    std::size_t uploads = 0;
    // the widest one exceeds the limits of all current drivers
    for (const std::int32_t width : {2, 5, 7, 100, 70000}) {
        for (const std::int32_t height : {1, 5}) {
            std::vector<Rgba8> pixels;
            pixels.reserve(static_cast<std::size_t>(width * height));
            for (std::int32_t i = 0; i < width * height; ++i) {
                pixels.push_back(i % width * 4 / width < 2 ? red : green);
            }
            setTexture(material, width, pixels);
            EXPECT_LE(difference(scene_.shown(-2, 0), 0xffff0000U), 4) << width;
            EXPECT_LE(difference(scene_.at(2, 0), 0xff00ff00U), 4) << width;
            EXPECT_EQ(gl_->view().counts().uploads, ++uploads);
            EXPECT_EQ(gl_->view().textureCount(), 1U);
        }
    }
    // wireframe turns textures off, and the mesh turns them on again
    state_.mode = RenderMode::Wireframe;
    scene_.redraw();
    state_.mode = RenderMode::SmoothShading;
    EXPECT_LE(difference(scene_.shown(-2, 0), 0xffff0000U), 2);
    material.HasTexture = false;
    EXPECT_EQ(scene_.shown(-2, 0), 0xffffffffU);
    EXPECT_EQ(gl_->view().textureCount(), 0U);
}

TEST_F(GlViewTest, EditsOfARecordedMeshShowAtOnce) {
    addTexturedSquare();
    setTexture(document_.Materials[1], 2, {{0, 255, 0, 255}, {0, 0, 255, 255}});
    const auto drawn = [&](int rounds = GlLists::drawsBeforeRecording + 1) {
        for (int round = 0; round < rounds; ++round) {
            scene_.picture = scene_.draw(document_, state_);
        }
        return scene_.at(-2, 0);
    };
    EditHistory history;
    EXPECT_EQ(drawn(), 0xffff0000U);
    setFaceSlot(history, document_, FramePath(), 0, 1);
    EXPECT_EQ(drawn(), 0xff00ff00U);
    const std::vector<Vec2> before = scene_.mesh().TexCoords;
    const std::vector<Vec2> after = {{0.5F, 0}, {1.5F, 0}, {1.5F, 1}, {0.5F, 1}};
    const std::vector<std::int32_t> numbers = {0, 1, 2, 3};
    recordTexCoords(history, document_, FramePath(), numbers, before, after);
    EXPECT_EQ(drawn(), 0xff0000ffU);
    history.undo(document_);
    EXPECT_EQ(drawn(1), 0xff00ff00U);
    scene_.mesh().HasTexCoords = false;
    EXPECT_EQ(drawn(), 0xffffffffU);
}

TEST_F(GlViewTest, ListsShowWhatDirectDrawingDoes) {
    // the middle one of three textured squares has no coordinates; the last slot has no texture
    setTexture(document_.Materials[1], 2, {{0, 255, 0, 255}, {0, 0, 255, 255}});
    MeshRecord& mesh = scene_.mesh();
    for (const float z : {0.0F, 0.5F, 1.0F, 1.5F}) {
        addSquare(mesh, 4 - 2 * z, z);
    }
    mesh.HasTexCoords = true;
    mesh.TexCoords = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (const bool textured : {true, false, true, true}) {
        textured ? mesh.TexCoordFaces.push_back(std::vector<std::uint32_t>{0, 1, 2, 3})
                 : mesh.TexCoordFaces.push_back(std::vector<std::uint32_t>{});
    }
    mesh.FaceSlotIndex = {1, 1, 1, 0};
    for (const RenderMode mode :
         {RenderMode::SmoothShading, RenderMode::Wireframe, RenderMode::FlatShading}) {
        state_.mode = mode;
        const QImage direct = scene_.draw(document_, state_);
        EXPECT_GT(countOtherThan(direct, 0xff000000U), 500U);
        const std::size_t recorded = gl_->view().counts().recorded;
        for (int round = 0; round < GlLists::drawsBeforeRecording + 2; ++round) {
            EXPECT_EQ(scene_.draw(document_, state_), direct) << round;
        }
        EXPECT_EQ(gl_->view().counts().recorded > recorded, mode != RenderMode::FlatShading)
            << "faces are recorded once for both ways of shading";
    }
}

TEST_F(GlViewTest, ReadsWhatCoversTheBackground) {
    const auto over = [&](BitmapPixel background) {
        state_.colors.background = background;
        state_.lastDrawnMode.reset(); // makes redraw() set the background
        return scene_.draw(document_, state_);
    };
    Bitmap covered;
    state_.allowTransparent = false; // opaque faces differ from some background
    for (const RenderMode mode :
         {RenderMode::SmoothShading, RenderMode::FlatShading, RenderMode::Wireframe}) {
        scene_.open("windmill.xsi", {side, side});
        state_.mode = mode;
        const QImage onWhite = over(0xffffffffU);
        const QImage onBlack = over(0xff000000U);
        ASSERT_EQ(gl_->readWithCoverage(document_, state_, covered), GlStatus::Works);
        int wrong = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const bool open =
                    onWhite.pixel(x, y) == 0xffffffffU && onBlack.pixel(x, y) == 0xff000000U;
                wrong += covered.at(x, y) != (open ? 0 : onBlack.pixel(x, y)) ? 1 : 0;
            }
        }
        EXPECT_EQ(wrong, 0);
        EXPECT_LT(countOtherThan(overlayOf(covered), 0), covered.pixelCount() * 9 / 10);
    }
    EXPECT_EQ(over(0xffff0000U).pixel(0, 0), 0xffff0000U) << "the next drawing has its own colour";
    // invisible translucent faces cover too
    document_ = Scene({plain(1, 0, 0, 0)}).document;
    addSquare(scene_.mesh(), 1, 0);
    state_ = ViewState();
    over(0xff000000U);
    ASSERT_EQ(gl_->readWithCoverage(document_, state_, covered), GlStatus::Works);
    EXPECT_EQ(covered.at(side / 2, side / 2), 0xff000000U);
    EXPECT_EQ(covered.at(0, 0), 0U);
}

TEST_F(GlViewTest, AnImpossibleSizeIsAStatus) {
    EXPECT_EQ(gl_->redraw(document_, state_, 1 << 20, 1), GlStatus::NoFramebuffer);
    Bitmap picture;
    EXPECT_EQ(gl_->read(picture), GlStatus::NoFramebuffer);
    EXPECT_EQ(gl_->redraw(document_, state_, 0, 0), GlStatus::Works);
    EXPECT_EQ(gl_->read(picture), GlStatus::Works);
    EXPECT_EQ(picture.pixelCount(), 1U);
}

} // namespace
} // namespace korvane::test

int main(int argc, char** argv) {
    return korvane::test::runTestsOnDisplay<QGuiApplication>(argc, argv);
}
