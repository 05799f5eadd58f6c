#include "formats/xsi/FrameNames.h"

#include "support/FrameMaking.h"
#include "support/TextModel.h"
#include "support/Words.h"

#include <random>
#include <string>
#include <vector>

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
    std::string name() {
        static const std::vector<std::string> words =
            test::words("_ _ __ e 2 x { } / A frm- mesh frame template animationset "
                        "frametransformmatrix");
        std::string name = number(20) == 0 ? "a\nb" : "";
        for (std::size_t left = number(4); left > 0; --left) {
            const std::size_t part = number(words.size() + 3);
            name +=
                part < words.size() ? words[part] : std::string(1, " \t\r"[part - words.size()]);
        }
        return name;
    }
    FrameRecord frame() {
        FrameRecord frame = test::named(name());
        frame = number(3) > 0 ? withMesh(frame) : frame;
        frame.Emissive = frame.HasMesh && number(2) == 0;
        frame.GFlag = frame.HasMesh && number(2) == 0;
        frame.HasAnimation = frame.HasMesh && number(2) == 0;
        if (frame.HasAnimation) {
            frame.AnimationKeys = {{7, {0.5F}}};
        }
        return frame;
    }
    std::size_t number(std::size_t below) { return random_() % below; }

  private:
    std::mt19937 random_{15};
};

TEST(FrameNames, ThereIsAReasonExactlyForFramesThatReadingLoses) {
    RandomNames random;
    int lost = 0;
    constexpr int rounds = 5'000;
    for (int round = 0; round < rounds; ++round) {
        const FrameRecord frame = random.frame();
        const bool root = random.number(3) == 0;
        // an animation whose frame is not found goes to the last frame
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
