#include "formats/textures/PicDecoder.h"
#include "formats/textures/QtDecoder.h"
#include "formats/textures/TextureDecoding.h"
#include "formats/textures/TextureLoader.h"
#include "formats/textures/TgaDecoder.h"
#include "formats/xsi/MshOpener.h"
#include "support/AllocationWatch.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <QBuffer>
#include <QImage>

#include <utility>

namespace korvane {
namespace {

using namespace std::string_literals;
using Bytes = std::vector<std::uint8_t>;

struct TgaOptions {
    std::uint8_t type = 2;
    std::uint8_t depth = 24;
    std::uint8_t descriptor = 0;
    std::uint8_t idLength = 0;
    std::uint8_t mapType = 0;
    std::uint8_t mapLength = 0;
};

Bytes tga(std::uint8_t width, std::uint8_t height, const Bytes& pixels, const TgaOptions& o = {}) {
    Bytes bytes = {o.idLength, o.mapType, o.type, 0,     0, o.mapLength, 0, 24,      0,
                   0,          0,         0,      width, 0, height,      0, o.depth, o.descriptor};
    bytes.resize(bytes.size() + o.idLength + (o.mapType != 0 ? 3U * o.mapLength : 0U), 0xEE);
    bytes.insert(bytes.end(), pixels.begin(), pixels.end());
    return bytes;
}

bool isBlank(const TextureImage& image) {
    return image == *blankTextureImage();
}

TEST(Tga, RowsFromBottomOrTop) {
    const Bytes rows = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const Bytes turned = {7, 8, 9, 10, 11, 12, 1, 2, 3, 4, 5, 6};
    const TextureImage expected = {
        2, 2, {{9, 8, 7, 255}, {12, 11, 10, 255}, {3, 2, 1, 255}, {6, 5, 4, 255}}, false};
    EXPECT_EQ(decodeTga(tga(2, 2, rows)).image, expected);
    EXPECT_EQ(decodeTga(tga(2, 2, turned, {.descriptor = 0x20})).image, expected);
    // the bit for right to left is ignored; the identification and the colour map are skipped
    EXPECT_EQ(decodeTga(tga(2, 2, rows, {.descriptor = 0x10})).image, expected);
    EXPECT_EQ(decodeTga(tga(2, 2, rows, {.idLength = 7, .mapType = 1, .mapLength = 5})).image,
              expected);
}

TEST(Tga, DepthsAndTheirExtremes) {
    const struct {
        std::uint8_t depth;
        Bytes pixel;
        Rgba8 expected;
    } rows[] = {
        {16, {0xFF, 0x7F}, {255, 255, 255, 255}}, {16, {0, 0}, {0, 0, 0, 255}},
        {16, {0x1F, 0x00}, {0, 0, 255, 255}},     {16, {0xE0, 0x03}, {0, 255, 0, 255}},
        {16, {0x00, 0x7C}, {255, 0, 0, 255}},     {16, {0x01, 0x80}, {0, 0, 8, 255}},
        {32, {1, 2, 3, 77}, {3, 2, 1, 255}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(decodeTga(tga(1, 1, row.pixel, {.depth = row.depth})).image.pixels.at(0),
                  row.expected);
    }
}

TEST(Tga, WhatCannotBeDecodedIsBlank) {
    const Bytes pixel = {1, 2, 3};
    Bytes huge = tga(1, 1, pixel);
    huge[13] = huge[15] = 0xFF; // 65 thousand pixels each way
    std::vector<Bytes> bad = {{}, huge, tga(0, 1, pixel), tga(1, 0, pixel), tga(2, 1, pixel)};
    for (const std::uint8_t type : Bytes{0, 1, 3, 9, 10, 11}) {
        bad.push_back(tga(1, 1, pixel, {.type = type}));
    }
    for (const std::uint8_t depth : Bytes{0, 1, 8, 15, 64}) {
        bad.push_back(tga(1, 1, Bytes(100), {.depth = depth}));
    }
    for (const Bytes& bytes : bad) {
        EXPECT_TRUE(isBlank(decodeTga(bytes).image)) << testing::PrintToString(bytes);
    }
}

constexpr std::uint8_t red = 0x80;
constexpr std::uint8_t rgb = 0xE0;
constexpr std::uint8_t alpha = 0x10;

Bytes pic(std::uint8_t width, std::uint8_t height, const Bytes& channels, const Bytes& data) {
    Bytes bytes = {0x53, 0x80, 0xF6, 0x34};
    bytes.resize(88, 0x20);
    for (const int byte :
         {0x50, 0x49, 0x43, 0x54, 0, int{width}, 0, int{height}, 0, 0, 0, 0, 0, 0, 0, 0}) {
        bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    for (std::size_t i = 0; i < channels.size(); ++i) {
        bytes.insert(bytes.end(), {static_cast<std::uint8_t>(i + 1 < channels.size() ? 1 : 0), 8, 2,
                                   channels[i]});
    }
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

TEST(Pic, RunsAndLiterals) {
    const struct {
        Bytes data;
        Bytes expected; ///< the red channel
    } rows[] = {
        {{3, 1, 2, 3, 4}, {1, 2, 3, 4}},
        {{131, 9}, {9, 9, 9, 9}},
        {{129, 9, 1, 5, 6}, {9, 9, 5, 6}},
        {{255, 9}, {9, 9, 9, 9}},               // runs stop at the end of the row
        {{9, 1, 2, 3, 4}, {1, 2, 3, 4}},        // so do literals
        {{128, 7, 3, 9, 0, 8}, {9, 9, 9, 8}},   // only the second byte counts
        {{128, 1, 0, 9, 131, 8}, {8, 8, 8, 8}}, // an empty run
        {{129, 9}, {9, 9, 255, 255}},           // truncated data
    };
    for (const auto& row : rows) {
        Bytes reds;
        for (const Rgba8& pixel : decodePic(pic(4, 1, {red}, row.data)).image.pixels) {
            reds.push_back(pixel.red);
        }
        EXPECT_EQ(reds, row.expected);
    }
    const TextureImage wide = decodePic(pic(50, 1, {red}, {128, 0x01, 0x2C, 7, 133, 8})).image;
    EXPECT_EQ(std::count(wide.pixels.begin(), wide.pixels.end(), Rgba8{7, 255, 255, 255}), 44);
}

TEST(Pic, PacketsFillTheirChannelsRowByRow) {
    const TextureImage image =
        decodePic(
            pic(2, 2, {rgb, alpha}, {1, 1, 2, 3, 4, 5, 6, 129, 100, 129, 7, 8, 9, 1, 255, 200}))
            .image;
    EXPECT_EQ(image.pixels,
              (std::vector<Rgba8>{{1, 2, 3, 100}, {4, 5, 6, 100}, {7, 8, 9, 255}, {7, 8, 9, 200}}));
    EXPECT_TRUE(image.HasAlpha);
    EXPECT_FALSE(decodePic(pic(2, 1, {rgb, alpha}, {129, 1, 2, 3, 129, 255})).image.HasAlpha);
}

TEST(Pic, WhatCannotBeDecodedIsBlank) {
    const Bytes good = pic(1, 1, {red}, {0, 1});
    EXPECT_FALSE(isBlank(decodePic(good).image));
    for (const std::size_t at : {0U, 88U, 92U}) { // the marks, and far too many columns
        Bytes bad = good;
        bad[at] ^= 0xFF;
        EXPECT_TRUE(isBlank(decodePic(bad).image)) << at;
    }
    for (std::size_t size = 0; size < 105; ++size) {
        EXPECT_TRUE(isBlank(decodePic({good.data(), size}).image));
    }
    EXPECT_TRUE(isBlank(decodePic(pic(0, 5, {red}, {0, 1})).image));
}

class Textures : public test::TestFiles {
  protected:
    /// Writes a picture of one pixel, identified by its blue.
    void picture(const char* name, std::uint8_t blue) {
        const Bytes bytes = QByteArray(name).toLower().endsWith("pic")
                                ? pic(1, 1, {rgb}, {0, 0, 0, blue})
                                : tga(1, 1, {blue, 0, 0});
        write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    /// Returns the blue of the texture loaded under a name; 255 for the 1 x 1 image.
    [[nodiscard]] int load(const std::string& name) {
        return loader_.load(name)->pixels.at(0).blue;
    }

  private:
    TextureLoader loader_{folder()};
};

TEST_F(Textures, AreSearchedInOrder) {
    picture("a.tga", 1);
    picture("Sub/Skin.TGA", 2);
    picture("both.pic", 3);
    picture("both.tga", 4);
    picture("both", 9);
    picture("only.TGA", 5);
    picture("photo.jpg", 6);
    picture("folder.tga/x", 0);
    const std::pair<const char*, int> rows[] = {
        {"a.tga", 1},       {"A.Tga", 1},         {"sub\\skin.tga", 2}, {"SUB\\SKIN.TGA", 2},
        {"both", 3},        {"BOTH", 3},          {"both.tga", 4},      {"only", 5},
        {"photo.jpg", 255}, {"missing.tga", 255}, {"folder.tga", 255}};
    for (const auto& [name, blue] : rows) {
        EXPECT_EQ(load(name), blue) << name;
    }
    EXPECT_EQ(load(""), 255);
    EXPECT_EQ(load("c:\\maps\\a.tga"), 1);
    EXPECT_EQ(load(path("a.tga").toStdString()), 1);
    EXPECT_EQ(load(path("sub/SKIN.tga").toStdString()), 2);
    EXPECT_EQ(load("..\\" + folder().section(u'/', -1).toStdString() + "\\a.tga"), 1);
    picture("Sub/a.tga", 7);
    const test::WorkingFolder here(path("Sub"));
    EXPECT_EQ(load("./a.tga"), 7) << "as named, before beside the model";
}

TEST_F(Textures, AreDecodedOnceAndShared) {
    picture("a.tga", 1);
    picture("b.TGA", 2);
    TextureLoader loader(folder());
    const auto first = loader.load("a.tga");
    QFile::remove(path("a.tga"));
    EXPECT_EQ(loader.load("a.tga"), first);
    EXPECT_EQ(loader.load("A.TGA"), blankTextureImage()); // not decoded, and gone by now
    const auto other = loader.load("B.tga");
    EXPECT_NE(other, first);
    for (const char* alias : {"b", "b.TGA", ".\\b.tga", "c:\\b.tga"}) {
        EXPECT_EQ(loader.load(alias), other) << alias;
    }
    EXPECT_EQ(loader.load("c.tga"), blankTextureImage());
}

TEST_F(Textures, AreDecodedOnceForAllThatShareAStore) {
    for (const std::size_t kept : {0U, 9U}) { // pixels
        picture("a.tga", 1);
        const auto store = std::make_shared<TextureStore>(kept);
        {
            TextureLoader first(folder(), 9, store);
            TextureLoader second(folder(), 9, store);
            EXPECT_EQ(second.load("A.tga"), first.load("a.tga"));
            EXPECT_EQ(TextureLoader(folder(), 0, store).load("a.tga"), blankTextureImage());
        }
        write("a.tga", "gone");
        TextureLoader later(folder(), 9, store);
        const auto found = later.locate(QStringLiteral("a.tga"));
        ASSERT_TRUE(found);
        EXPECT_EQ(later.outcome(*found).pixels, 1U); // known whether kept or not
        EXPECT_EQ(later.load("a.tga") == blankTextureImage(), kept == 0);
    }
    const auto store = std::make_shared<TextureStore>(1);
    const auto blue = [&](const char* name) {
        return int{TextureLoader(folder(), 9, store).load(name)->pixels.at(0).blue};
    };
    for (const char* name : {"b.tga", "c.tga"}) {
        picture(name, 1);
        EXPECT_EQ(blue(name), 1);
        write(name, "gone");
    }
    EXPECT_EQ(std::pair(blue("b.tga"), blue("c.tga")), std::pair(1, 255)) << "one pixel is kept";
}

TEST_F(Textures, TooLargeForOneLoaderIsDecodedForAnother) {
    picture("a.tga", 1);
    const auto store = std::make_shared<TextureStore>();
    const auto outcome = [&](std::size_t maxPixels) {
        TextureLoader loader(folder(), maxPixels, store);
        return loader.outcome(*loader.locate(QStringLiteral("a.tga")));
    };
    EXPECT_TRUE(outcome(0).tooLarge);
    EXPECT_EQ(outcome(1).refusal, "");
    EXPECT_EQ(outcome(0).refusal, tooManyPixels);
}

TEST_F(Textures, RefusalsHaveReasons) {
    const std::string bytes(18, '\0');
    const std::pair<const char*, const char*> rows[] = {
        {"a.tga", "it is a TGA of type 0, but only type 2 (uncompressed true colour) is read"},
        {"a.pic", "it is not a Softimage picture"},
        {"a.bmp", "it is not a bitmap"},
        {"a.ico", "it is damaged, or not an icon"},
        {"a.PNG", ".png files are not read"},
        {"a", "its name has no extension"},
    };
    for (const auto& [name, reason] : rows) {
        EXPECT_EQ(decodeTextureFile(write(name, bytes)).refusal, reason);
    }
    EXPECT_EQ(decodeTextureFile(path("gone.tga")).refusal, "the file cannot be read");
    const Bytes pixel = {1, 2, 3};
    const auto refusal = [](const Bytes& tga) {
        return decodeTexture(tga, QStringLiteral(".Tga")).refusal;
    };
    EXPECT_EQ(refusal(tga(1, 1, pixel)), "");
    EXPECT_EQ(refusal(tga(1, 1, pixel, {.depth = 8})),
              "it is a TGA with 8 bits per pixel, but only 16, 24 and 32 are read");
    EXPECT_EQ(refusal(tga(1, 2, pixel)), "it is truncated");
    EXPECT_EQ(refusal(tga(0, 1, pixel)), "it has no pixels");
}

TEST_F(Textures, BitmapsAndIconsGoByTheirExtensionAlone) {
    const std::string bmp =
        "BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\2\0\0\0\1\0\x18\0\0\0\0\0\x10\0\0\0"
        "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
        "\1\2\3\4\5\6\0\0\7\x8\x9\xA\xB\xC\0\0"s;
    write("a.bmp", bmp);
    TextureLoader loader(folder());
    const auto image = loader.load("a.bmp");
    ASSERT_EQ(image->width, 2);
    ASSERT_EQ(image->height, 2);
    EXPECT_EQ(image->pixels[0], (Rgba8{9, 8, 7, 255}));
    EXPECT_EQ(image->pixels[3], (Rgba8{6, 5, 4, 255}));
    // in the oldest header, the sizes have two bytes; the pixels follow it
    write("old.bmp",
          "BM\x2A\0\0\0\0\0\0\0\x1A\0\0\0\x0C\0\0\0\2\0\2\0\1\0\x18\0"s + std::string(16, '\xFF'));
    EXPECT_EQ(loader.load("old.bmp")->width, 2);
    std::string topDown = bmp;
    topDown.replace(22, 4, "\xFE\xFF\xFF\xFF"s);
    write("down.bmp", topDown);
    EXPECT_EQ(loader.load("down.bmp")->pixels[0], (Rgba8{3, 2, 1, 255}));
    write("wrong.ico", bmp);
    write("wrong.wmf", bmp);
    write("cut.bmp", bmp.substr(0, 40));
    std::string huge = bmp;
    huge[20] = huge[24] = 0x7F; // millions of rows and columns
    write("huge.bmp", huge);
    for (const char* name : {"wrong.ico", "wrong.wmf", "cut.bmp", "huge.bmp"}) {
        EXPECT_EQ(loader.load(name), blankTextureImage()) << name;
    }
}

/// Returns an icon of one picture in PNG form, which claims 16 x 16 pixels.
std::string icon(int side) {
    QImage picture(side, side, QImage::Format_Mono);
    picture.fill(0);
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    EXPECT_TRUE(picture.save(&png, "PNG"));
    std::string bytes = "\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0SIZE\x16\0\0\0"s;
    for (int i = 0; i < 4; ++i) {
        bytes[14 + static_cast<std::size_t>(i)] = static_cast<char>(png.size() >> (8 * i));
    }
    return bytes + png.data().toStdString();
}

TEST_F(Textures, PicturesThatUnpackIntoFarMoreAreBlank) {
    TextureLoader loader(folder());
    write("good.ico", icon(256));
    EXPECT_EQ(loader.load("good.ico")->width, 256);
    const std::string bomb = icon(20000); // 60 kilobytes, 50 megabytes unpacked
    EXPECT_LT(bomb.size(), 100000U);
    write("bomb.ico", bomb);
    EXPECT_EQ(loader.load("bomb.ico"), blankTextureImage());

    // 100 x 100 pixels of 24 bits cannot be in 2000 bytes; as runs, they could
    std::string bmp = "BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x64\0\0\0\x64\0\0\0\1\0\x18"s;
    bmp.resize(2000);
    write("cut.bmp", bmp);
    EXPECT_EQ(loader.load("cut.bmp"), blankTextureImage());
    bmp[28] = 8;  // bits
    bmp[30] = 1;  // runs
    bmp[46] = 2;  // colours
    bmp[10] = 62; // where the runs begin
    bmp.replace(54, 8, "\1\2\3\0\4\5\6\0"s);
    for (std::size_t row = 0; row < 100; ++row) {
        bmp.replace(62 + 4 * row, 4, "\x64\1\0\0"s);
    }
    write("runs.bmp", bmp);
    EXPECT_EQ(loader.load("runs.bmp")->width, 100);
    EXPECT_EQ(loader.load("runs.bmp")->pixels.back(), (Rgba8{6, 5, 4, 255}));

    // runs that skip all pixels: the first colour everywhere, not what the memory held before
    bmp.replace(62, std::string::npos, "\0\1"s);
    write("empty.bmp", bmp);
    const auto empty = loader.load("empty.bmp");
    EXPECT_EQ(std::count(empty->pixels.begin(), empty->pixels.end(), Rgba8{3, 2, 1, 255}), 10000);
}

TEST_F(Textures, PackedPicturesHaveALimitOfTheirOwn) {
    // the bytes of runs needed for 64 Mi pixels and one row or column more
    const std::string runs((std::size_t{8192} + 1) * (8192 / 128 + 1), '\0');
    Bytes packed = pic(0, 1, {red}, {runs.begin(), runs.end()});
    packed[92] = packed[94] = 0x20; // 8192 each way, and one more row
    std::string bmp =
        "BM\0\0\0\0\0\0\0\0\x3e\0\0\0\x28\0\0\0\1\x20\0\0\0\x20\0\0\1\0\x08\0\1\0\0\0"s;
    bmp.resize(62);
    bmp[46] = 2; // colours
    bmp += runs;
    const test::AllocationWatch watch;
    EXPECT_TRUE(isBlank(decodePic(packed).image));
    EXPECT_TRUE(isBlank(decodeWithQt(Bytes(bmp.begin(), bmp.end()), "BMP").image));
    EXPECT_LT(watch.largest(), std::size_t{1} << 20U);
    packed[92] = 0; // 1 column
    bmp[19] = 0;    // 1 row
    packed[93] = 1;
    EXPECT_EQ(decodePic(packed).image.height, 8193);
    EXPECT_FALSE(isBlank(decodeWithQt(Bytes(bmp.begin(), bmp.end()), "BMP").image));
}

TEST_F(Textures, OfOneReadingShareALimit) {
    const auto square = [&](const char* name, std::uint8_t side) {
        const Bytes bytes = tga(side, side, Bytes(std::size_t{3} * side * side, 7));
        write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    };
    square("a.tga", 6);
    square("b.tga", 7);
    square("c.tga", 8);
    TextureLoader loader(folder(), 100);
    const std::pair<const char*, int> rows[] = {{"a.tga", 6}, {"A.TGA", 6}, {"c.tga", 8},
                                                {"b.tga", 1}, {"c", 8},     {"missing.tga", 1}};
    for (const auto& [name, side] : rows) {
        EXPECT_EQ(loader.load(name)->width, side) << name;
    }
    write("last.ico", icon(2));
    EXPECT_EQ(loader.load("last.ico"), blankTextureImage()) << "nothing is left";
    TextureLoader few(folder(), 60);
    EXPECT_EQ(few.load("c.tga")->width, 1);
    EXPECT_EQ(few.load("b.tga")->width, 7);
    EXPECT_EQ(few.load("a.tga")->width, 1);
}

TEST_F(Textures, AMeshFileIsOnlyOpenedAndAnEmptyModelSaved) {
    const test::WorkingFolder here(folder());
    const QString name = QStringLiteral("a.msh");
    const QString saved = QStringLiteral("loaded.xsi");
    ModelDocument document;
    document.FileName = name;
    EXPECT_EQ(FileOpenMSH(name, document).status, ReadStatus::Missing);
    EXPECT_EQ(filesInFolder(), 0);
    write("a.msh", "\1\2\3");
    document.NeverSaved = false;
    const MshOutcome done = FileOpenMSH(name, document);
    EXPECT_EQ(done.status, ReadStatus::Done);
    EXPECT_EQ(done.saveFailed, QString());
    EXPECT_TRUE(document.NeverSaved);
    EXPECT_EQ(document.FileName, name);
    EXPECT_EQ(content(saved), test::writeText(ModelDocument()));
    QFile::remove(saved);
    QDir().mkdir(saved);
    EXPECT_EQ(FileOpenMSH(name, document).saveFailed, saved);
    EXPECT_EQ(FileOpenMSH(folder(), document).status, ReadStatus::CannotOpen);
    EXPECT_EQ(document.FileName, QStringLiteral("Untitled"));
}

} // namespace
} // namespace korvane
