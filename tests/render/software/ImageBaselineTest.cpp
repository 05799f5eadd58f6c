#include "formats/xsi/XsiReader.h"
#include "render/scene/StartCamera.h"
#include "support/Scene.h"

#include <QImage>

#include <gtest/gtest.h>

namespace korvane {
namespace {

/// The samples as the start camera sees them, beside pictures that were looked at. A picture is
/// made anew by
///   korvane-tool render samples/NAME tests/render/software/baseline/NAME-MODE.png --mode MODE
///   --size 240x180
/// It passes when at most one pixel in 200 differs by more than 24 levels in some channel:
/// compilers round differently, which moves edges by a pixel here and there.
constexpr double allowedShare = 0.005;
constexpr int allowedLevels = 24;

TEST(ImageBaseline, SamplesLookAsTheyDid) {
    for (const char* sample : {"windmill.xsi", "skiff.xsi", "lighthouse.x"}) {
        ModelDocument document;
        const QString samples = QStringLiteral(KORVANE_SAMPLES "/");
        ASSERT_EQ(FileOpenXSI(samples + QString::fromLatin1(sample), document), ReadStatus::Done);
        const struct {
            const char* name;
            RenderMode mode;
        } modes[] = {{"wireframe", RenderMode::Wireframe},
                     {"flat", RenderMode::FlatShading},
                     {"smooth", RenderMode::SmoothShading}};
        for (const auto& [name, mode] : modes) {
            const QImage baseline(QStringLiteral(KORVANE_BASELINE "/%1-%2.png")
                                      .arg(QString::fromLatin1(sample), QString::fromLatin1(name)));
            ASSERT_EQ(baseline.size(), QSize(240, 180)) << sample << ' ' << name;
            SoftwareView view;
            view.resize(baseline.width(), baseline.height());
            ViewState state;
            startCamera(document, state, view.geometry());
            state.mode = mode;
            view.redraw(document, state);
            std::size_t differing = 0;
            for (int y = 0; y < baseline.height(); ++y) {
                for (int x = 0; x < baseline.width(); ++x) {
                    differing += test::difference(view.bitmap().at(x, y), baseline.pixel(x, y)) >
                                         allowedLevels
                                     ? 1U
                                     : 0U;
                }
            }
            EXPECT_LE(static_cast<double>(differing),
                      allowedShare * static_cast<double>(view.bitmap().pixelCount()))
                << sample << ' ' << name;
        }
    }
}

} // namespace
} // namespace korvane
