#include "formats/XsiReader.h"
#include "render/GlOffscreen.h"
#include "render/StartCamera.h"
#include "support/Scene.h"

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
            GTEST_SKIP() << "no OpenGL here";
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
        startCamera(document_, ViewGeometry(side, side));
        // black highlights: those of two views need not agree
        for (MaterialRecord& material : document_.Materials) {
            material.Specular = {};
        }
    }
    bool drawnAt(const QImage& picture, int x, int y) const {
        return picture.pixel(x, y) != state_.colors.background;
    }
    /// Whether something is drawn at the pixel or next to it.
    bool drawnNear(const QImage& picture, int x, int y) const {
        for (int row = std::max(0, y - 1); row <= std::min(side - 1, y + 1); ++row) {
            for (int column = std::max(0, x - 1); column <= std::min(side - 1, x + 1); ++column) {
                if (drawnAt(picture, column, row)) {
                    return true;
                }
            }
        }
        return false;
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

TEST_F(GlViewTest, DrawsTheSameWires) {
    state_.mode = RenderMode::Wireframe;
    for (const char* sample : {"windmill.xsi", "skiff.xsi", "lighthouse.x"}) {
        open(sample);
        for (const CameraAngles& angles : cameras) {
            state_.angles = angles;
            const QImage gl = glPicture();
            const QImage software = softwarePicture();
            double both = 0;
            double either = 0;
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    const bool inGl = drawnNear(gl, x, y);
                    const bool inSoftware = drawnNear(software, x, y);
                    both += inGl && inSoftware ? 1 : 0;
                    either += inGl || inSoftware ? 1 : 0;
                }
            }
            ASSERT_GT(both, 1000) << sample;
            EXPECT_GE(both / either, 0.9) << sample << " yaw " << angles.yaw;
        }
    }
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
    document_ = ModelDocument();
    gl_.redraw(document_, state_);
    EXPECT_EQ(gl_.view().listCount(), 0U);
}

} // namespace
} // namespace korvane::test

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
