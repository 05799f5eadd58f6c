#include "support/ModelText.h"
#include "support/RandomModel.h"

#include <clocale>
#include <locale>

namespace korvane {
namespace {

using test::readText;
using test::writeText;

TEST(RoundTrip, SavedModelsLoadAndSaveUnchanged) {
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        const std::string saved = writeText(test::RandomModel(seed).make());
        ASSERT_EQ(writeText(readText(saved)), saved) << "seed " << seed;
    }
}

// What a save and a load change by rule.

ModelDocument reloaded(const ModelDocument& document) {
    return readText(writeText(document));
}

TEST(RoundTrip, ABasePoseComesBackAsAnEmptyChild) {
    ModelDocument document;
    document.Root.Name = "a";
    document.Root.HasBasePose = true;
    const ModelDocument back = reloaded(document);
    EXPECT_FALSE(back.Root.HasBasePose);
    ASSERT_EQ(back.Root.Children.size(), 1U);
    EXPECT_EQ(back.Root.Children[0].Name, "aseposematrix");
}

TEST(RoundTrip, FlagsAndKeysNeedAMesh) {
    ModelDocument document;
    document.Root.Emissive = document.Root.HasAnimation = true;
    const ModelDocument back = reloaded(document);
    EXPECT_FALSE(back.Root.Emissive);
    EXPECT_FALSE(back.Root.HasAnimation);
}

TEST(RoundTrip, OfATextureOnlyTheFileNameReturns) {
    ModelDocument document;
    document.Root.HasMesh = document.Root.Mesh.HasMaterials = true;
    document.Root.Mesh.MaterialSlotList = {0};
    MaterialRecord& material = document.Materials.emplace_back();
    material.HasTexture = true;
    material.TextureFile = "maps/a.tga";
    material.RepeatU = 3;
    material.ShadingModel = 1;
    const ModelDocument back = reloaded(document);
    ASSERT_EQ(back.Materials.size(), 1U);
    EXPECT_EQ(back.Materials[0].TextureFile, "a.tga");
    EXPECT_EQ(back.Materials[0].RepeatU, 1);
    EXPECT_EQ(back.Materials[0].ShadingModel, 1);
}

TEST(RoundTrip, AnEmptyPolygonEndsTheReading) {
    ModelDocument document;
    document.Root.HasMesh = document.Root.Mesh.HasNormals = true;
    const std::uint32_t face[] = {0, 0, 0};
    document.Root.Mesh.Faces.push_back(face);
    document.Root.Mesh.Faces.push_back({});
    document.Root.Mesh.Faces.push_back(face);
    const ModelDocument back = reloaded(document);
    EXPECT_EQ(back.Root.Mesh.Faces.size(), 2U);
    EXPECT_FALSE(back.Root.Mesh.HasNormals);
}

TEST(RoundTrip, KeysOfFramesWithOneNameMeetInTheFirst) {
    ModelDocument document;
    document.Root.Name = "r";
    document.Root.Children.resize(2);
    for (FrameRecord& frame : document.Root.Children) {
        frame.Name = "same";
        frame.HasMesh = frame.HasAnimation = true;
        frame.AnimationKeys = {{1, {1}}};
    }
    const ModelDocument back = reloaded(document);
    EXPECT_EQ(back.Root.Children[0].AnimationKeys.size(), 2U);
    EXPECT_FALSE(back.Root.Children[1].HasAnimation);
}

/// Switches program and library to a locale with a comma for decimals and grouped digits.
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

TEST_F(CommaLocale, NeitherReadsNorWritesByIt) {
    const std::string saved = writeText(test::RandomModel(7).make());
    EXPECT_EQ(saved.find_first_of(".") == std::string::npos, false);
    EXPECT_EQ(writeText(readText(saved)), saved);
    std::setlocale(LC_ALL, "C");
    std::locale::global(std::locale::classic());
    EXPECT_EQ(writeText(test::RandomModel(7).make()), saved);
}

} // namespace
} // namespace korvane
