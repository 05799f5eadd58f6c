#include "formats/textures/TextureLoader.h"
#include "model/document/ModelCounts.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <array>
#include <initializer_list>
#include <map>

namespace korvane {
namespace {

/// Real models and pictures in a folder named by the environment; there may be none.
class Corpus : public testing::Test {
  protected:
    void SetUp() override {
        if (test::corpusFolder().isEmpty()) {
            GTEST_SKIP() << "KORVANE_CORPUS names no folder";
        }
    }
    static QFileInfoList files(std::initializer_list<const char*> subfolders) {
        QFileInfoList found;
        for (const char* subfolder : subfolders) {
            const QDir folder(QDir(test::corpusFolder()).filePath(QString::fromLatin1(subfolder)));
            found += folder.entryInfoList(QDir::Files);
            EXPECT_FALSE(found.isEmpty()) << subfolder;
        }
        return found;
    }
};

/// Returns true if the file begins with a header that is read.
bool hasHeader(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(16);
    return header == "xof 0302txt 0032" || header == "xof 0302txt 0064";
}

TEST_F(Corpus, EveryModelIsReadOrRefusedAndSavesToAFixedPoint) {
    // what some of them hold, to catch a partial reading
    const std::map<QString, std::array<std::size_t, 3>> known = {
        {QStringLiteral("heli.x"), {9, 421, 377}},
        {QStringLiteral("airplane 2.x"), {8, 1282, 596}},
        {QStringLiteral("car.x"), {5, 1860, 1850}},
        {QStringLiteral("ChessKnight.x"), {1, 5855, 10664}},
        {QStringLiteral("arrow.x"), {2, 156, 152}},
    };
    std::size_t met = 0;
    int read = 0;
    for (const QFileInfo& file : files({"x", "x-as-0302"})) {
        const QString path = file.filePath();
        ModelDocument document;
        const ReadStatus status = FileOpenXSI(path, document);
        ASSERT_EQ(status, hasHeader(path) ? ReadStatus::Done : ReadStatus::NotValid)
            << qPrintable(path);
        if (status != ReadStatus::Done) {
            continue;
        }
        ++read;
        if (const auto row = known.find(file.fileName()); row != known.end()) {
            const ModelCounts counts = countModel(document.Root);
            EXPECT_EQ((std::array{counts.meshes, counts.vertices, counts.faces}), row->second)
                << qPrintable(path);
            ++met;
        }
        // Names that the rules truncate may read back differently once, but not twice.
        const std::string again = test::writeText(test::readText(test::writeText(document)));
        EXPECT_EQ(test::writeText(test::readText(again)), again) << qPrintable(path);
    }
    EXPECT_GE(read, 20);
    EXPECT_GE(met, known.size());
}

TEST_F(Corpus, PicturesDecodeOrHarmNothing) {
    for (const QFileInfo& file : files({"tga", "pic", "bmp", "ico"})) {
        const TextureImage image = loadTextureFile(file.filePath());
        EXPECT_EQ(image.pixels.size(),
                  static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
    }
}

} // namespace
} // namespace korvane
