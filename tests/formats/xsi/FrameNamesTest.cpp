#include "formats/xsi/FrameNames.h"

#include "support/FrameMaking.h"
#include "support/TextModel.h"

#include <array>
#include <random>
#include <string>
#include <utility>

namespace korvane {
namespace {

using test::readText;
using test::writeText;

FrameRecord withMesh(FrameRecord frame) {
    frame.HasMesh = true;
    frame.Mesh.Vertices = {{1, 2, 3}};
    return frame;
}

class RandomNames {
  public:
    explicit RandomNames(std::uint32_t seed) : random_(seed) {}

    std::string name() {
        constexpr std::array<const char*, 19> parts = {"_",
                                                       "_",
                                                       "__",
                                                       "e",
                                                       "2",
                                                       "x",
                                                       " ",
                                                       "\t",
                                                       "{",
                                                       "}",
                                                       "/",
                                                       "A",
                                                       "\r",
                                                       "frm-",
                                                       "mesh",
                                                       "frame",
                                                       "template",
                                                       "animationset",
                                                       "frametransformmatrix"};
        std::string name = number(20) == 0 ? "a\nb" : "";
        for (std::size_t left = number(4); left > 0; --left) {
            name += parts.at(number(parts.size()));
        }
        return name;
    }
    FrameRecord frame() {
        FrameRecord frame = test::named(name());
        frame = number(3) > 0 ? withMesh(frame) : frame;
        frame.Emissive = frame.HasMesh && number(2) == 0;
        frame.GFlag = frame.HasMesh && number(2) == 0;
        if (frame.HasMesh && number(2) == 0) {
            frame.HasAnimation = true;
            frame.AnimationKeys = {{7, {0.5F}}};
        }
        return frame;
    }
    std::size_t number(std::size_t below) { return random_() % below; }

  private:
    std::mt19937 random_;
};

TEST(FrameNames, TheReasonTellsExactlyWhichFramesAReadingGivesBack) {
    RandomNames random(15);
    int lost = 0;
    constexpr int rounds = 5'000;
    for (int round = 0; round < rounds; ++round) {
        const FrameRecord frame = random.frame();
        const bool root = random.number(3) == 0;
        // the last frame is what an animation goes to whose frame is not found
        const FrameRecord last = withMesh(test::named("last"));
        ModelDocument document;
        document.Root = root ? frame : test::named("top", {frame});
        document.Root.Children.push_back(last);
        document.computeDerivedData(); // as reading does
        const QString reason = lostNameReason(frame.Name, nameUse(frame, root));
        const std::string text = writeText(document);
        EXPECT_EQ(readText(text).Root == document.Root, reason.isEmpty())
            << reason.toStdString() << "\n"
            << text.substr(text.find("Frame "));
        lost += reason.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(lost, rounds / 5);
    EXPECT_GT(rounds - lost, rounds / 5);
}

} // namespace
} // namespace korvane
