#include "support/FrameMaking.h"
#include "support/RandomModel.h"
#include "support/TextModel.h"

#include <clocale>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace korvane {
namespace {

using test::readText;
using test::writeText;

TEST(RoundTrip, SavedModelsComeBackWithEveryListAndSaveToTheSameBytes) {
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        ModelDocument document = test::RandomModel(seed).make();
        const std::string saved = writeText(document);
        ModelDocument back = readText(saved);
        ASSERT_EQ(writeText(back), saved) << "seed " << seed;
        document.computeDerivedData(); // as reading does
        FrameWalk now(back.Root);
        for (FrameWalk was(document.Root); !was.done() && !now.done(); was.next(), now.next()) {
            // the table is read in another order, that of the slots
            const std::vector<std::int32_t>& slots = was.frame().Mesh.MaterialSlotList;
            std::vector<std::int32_t>& read = now.frame().Mesh.MaterialSlotList;
            ASSERT_EQ(read.size(), slots.size()) << "seed " << seed;
            for (std::size_t i = 0; i < slots.size(); ++i) {
                EXPECT_TRUE(sameMaterial(back.Materials.at(static_cast<std::size_t>(read[i])),
                                         document.Materials.at(static_cast<std::size_t>(slots[i]))))
                    << "seed " << seed;
            }
            read = slots;
        }
        test::dropOddNormals(document.Root);
        test::dropOddNormals(back.Root);
        ASSERT_TRUE(back.Root == document.Root) << "seed " << seed;
    }
}

/// Sets a locale with decimal commas and grouped digits, for C++ and C.
class CommaLocale : public testing::Test {
  protected:
    class Punctuation : public std::numpunct<char> {
        [[nodiscard]] char do_decimal_point() const override { return ','; }
        [[nodiscard]] char do_thousands_sep() const override { return '.'; }
        [[nodiscard]] std::string do_grouping() const override { return "\3"; }
    };

    void SetUp() override {
        std::locale::global(std::locale(std::locale::classic(), new Punctuation));
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    }
    void TearDown() override {
        std::locale::global(std::locale::classic());
        std::setlocale(LC_ALL, "C");
    }
};

TEST_F(CommaLocale, AffectsNeitherReadingNorWriting) {
    std::ostringstream streamed;
    streamed << 1234.5;
    ASSERT_EQ(streamed.str(), "1.234,5") << "the locale is in effect";

    const ModelDocument document = test::RandomModel(7).make();
    const std::string saved = writeText(document);
    EXPECT_EQ(writeText(readText(saved)), saved);
    TearDown();
    EXPECT_EQ(writeText(document), saved);
    EXPECT_EQ(writeText(readText(saved)), saved);
}

} // namespace
} // namespace korvane
