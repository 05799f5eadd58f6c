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

TEST(RoundTrip, SavedModelsLoadAndSaveUnchanged) {
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        const std::string saved = writeText(test::RandomModel(seed).make());
        ASSERT_EQ(writeText(readText(saved)), saved) << "seed " << seed;
    }
}

ModelDocument reloaded(const ModelDocument& document) {
    return readText(writeText(document));
}

TEST(RoundTrip, EveryListComesBackInItsPlace) {
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        ModelDocument document = test::RandomModel(seed).make();
        ModelDocument back = reloaded(document);
        document.computeDerivedData(); // as reading does
        FrameWalk now(back.Root);
        for (FrameWalk was(document.Root); !was.done() && !now.done(); was.next(), now.next()) {
            // the table has another order: that of the slots
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

// What a save and a load change by rule.

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
    std::ostringstream streamed;
    streamed << 1234.5;
    ASSERT_EQ(streamed.str(), "1.234,5") << "the locale is at work";

    ModelDocument document;
    document.Root.HasMesh = document.Root.HasAnimation = true;
    document.Root.Mesh.Vertices.assign(1234, {1234.5F, -0.25F, 1e-7F});
    const std::uint32_t face[] = {0, 1000, 1000000};
    document.Root.Mesh.Faces.push_back(face);
    document.Root.AnimationKeys = {{1234567, {1234.5F, 1e10F}}};
    const std::string saved = writeText(document);
    for (const char* text :
         {" 1234;\n", "1234.5;-0.25;1e-07;", "3;0,1000,1000000;", "1234567; 2; 1234.5, 1e+10;;;"}) {
        EXPECT_NE(saved.find(text), std::string::npos) << text;
    }
    const ModelDocument back = readText(saved);
    EXPECT_EQ(back.Root.Mesh.Vertices, document.Root.Mesh.Vertices);
    EXPECT_EQ(back.Root.Mesh.Faces, document.Root.Mesh.Faces);
    EXPECT_EQ(back.Root.AnimationKeys, document.Root.AnimationKeys);

    const std::string random = writeText(test::RandomModel(7).make());
    EXPECT_EQ(writeText(readText(random)), random);
    std::setlocale(LC_ALL, "C");
    std::locale::global(std::locale::classic());
    EXPECT_EQ(writeText(document), saved);
    EXPECT_EQ(writeText(test::RandomModel(7).make()), random);
}

} // namespace
} // namespace korvane
