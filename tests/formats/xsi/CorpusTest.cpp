#include "model/document/ModelCounts.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <array>
#include <map>

namespace korvane {
namespace {

/// Real models, in a folder that the environment names; there may be none.
class Corpus : public testing::Test {
  protected:
    void SetUp() override {
        if (test::corpusFolder().isEmpty()) {
            GTEST_SKIP() << "KORVANE_CORPUS names no folder";
        }
        folder_.setPath(test::corpusFolder());
    }
    [[nodiscard]] QStringList models(const char* subfolder) const {
        QStringList paths;
        const QDir folder(folder_.filePath(QString::fromLatin1(subfolder)));
        for (const QString& name : folder.entryList({QStringLiteral("*.x")}, QDir::Files)) {
            paths << folder.filePath(name);
        }
        EXPECT_FALSE(paths.isEmpty());
        return paths;
    }

  private:
    QDir folder_;
};

/// Whether the file's first bytes are those of a format that is read.
bool hasHeader(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(16);
    return header == "xof 0302txt 0032" || header == "xof 0302txt 0064";
}

TEST_F(Corpus, EveryModelIsReadOrRefusedAndSavesToAFixedPoint) {
    // what some of them hold, so that none is read by halves
    std::map<QString, std::array<std::size_t, 3>> known = {
        {QStringLiteral("heli.x"), {9, 421, 377}},
        {QStringLiteral("airplane 2.x"), {8, 1282, 596}},
        {QStringLiteral("car.x"), {5, 1860, 1850}},
        {QStringLiteral("ChessKnight.x"), {1, 5855, 10664}},
        {QStringLiteral("arrow.x"), {2, 156, 152}},
    };
    int read = 0;
    for (const QString& path : models("x") + models("x-as-0302")) {
        ModelDocument document;
        const ReadStatus status = FileOpenXSI(path, document);
        ASSERT_EQ(status, hasHeader(path) ? ReadStatus::Done : ReadStatus::NotValid)
            << qPrintable(path);
        if (status == ReadStatus::Done) {
            ++read;
            if (const auto row = known.find(QFileInfo(path).fileName()); row != known.end()) {
                const ModelCounts counts = countModel(document.Root);
                EXPECT_EQ((std::array{counts.meshes, counts.vertices, counts.faces}), row->second)
                    << qPrintable(path);
                known.erase(row);
            }
            const std::string saved = test::writeText(document);
            // Names that the rules cut short may read back differently once, never twice.
            const std::string again = test::writeText(test::readText(saved));
            EXPECT_EQ(test::writeText(test::readText(again)), again) << qPrintable(path);
        }
    }
    EXPECT_GE(read, 20);
    EXPECT_TRUE(known.empty());
}

} // namespace
} // namespace korvane
