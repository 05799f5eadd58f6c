#include "formats/files/OtherSave.h"

#include "formats/files/Checksum.h"
#include "formats/xsi/XsiReader.h"
#include "formats/xsi/XsiWriter.h"
#include "support/TestFiles.h"

#include <QDateTime>

#include <set>

namespace korvane {
namespace {

class OtherSaves : public test::TestFiles {
  protected:
    /// Gives the file another time, as if the same bytes had been written again.
    static void touch(const QString& name, int milliseconds = 1000) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::fromMSecsSinceEpoch(milliseconds),
                                     QFileDevice::FileModificationTime));
    }
    /// Returns the names and contents of all files in the folder.
    [[nodiscard]] std::string listing() const {
        std::string all;
        for (const QString& name : QDir(folder()).entryList(QDir::Files, QDir::Name)) {
            all += name.toStdString() + '=' + content(path(qPrintable(name))) + ' ';
        }
        return all;
    }
};

TEST_F(OtherSaves, AreKeptBesideTheFileIfTheirBytesDiffer) {
    using Fate = OtherSave::Fate;
    constexpr const char* model = "xsi 0101txt 0032\nframe frm-a {\n}\n";
    const struct {
        const char* what;
        const char* meanwhile; ///< the bytes that another program saved; null if none did
        const char* taken;     ///< names already taken
        Fate fate;
        const char* keptAs;
    } rows[] = {
        {"untouched", nullptr, "", Fate::None, ""},
        {"the same bytes again", model, "", Fate::None, ""},
        {"other bytes", "theirs", "", Fate::Kept, "m.xsi~"},
        {"other bytes of that size", "Xsi 0101txt 0032\nframe frm-b {\n}\n", "", Fate::Kept,
         "m.xsi~"},
        {"the first name is taken", "theirs", "m.xsi~", Fate::Kept, "m.xsi~2"},
        {"two are", "theirs", "m.xsi~ m.xsi~2", Fate::Kept, "m.xsi~3"},
        {"an empty file", "", "", Fate::Kept, "m.xsi~"},
    };
    for (const auto& row : rows) {
        const QString file = write("m.xsi", model);
        ModelDocument document;
        OpenNotes notes;
        ASSERT_EQ(FileOpenXSI(file, document, {}, &notes), ReadStatus::Done);
        for (const QString& name : QString::fromLatin1(row.taken).split(u' ', Qt::SkipEmptyParts)) {
            write(qPrintable(name), "taken");
        }
        if (row.meanwhile != nullptr) {
            write("m.xsi", row.meanwhile);
            touch(file);
        }
        const std::string before = listing();
        const OtherSave other = keepOtherSave(file, notes.file);
        EXPECT_EQ(other.fate, row.fate) << row.what;
        if (row.fate == Fate::Kept) {
            EXPECT_EQ(other.keptAs, path(row.keptAs)) << row.what;
            EXPECT_EQ(content(other.keptAs), row.meanwhile) << row.what;
            QFile::remove(other.keptAs);
        }
        EXPECT_EQ(listing(), before) << row.what;
        for (const char* name : {"m.xsi~", "m.xsi~2"}) {
            QFile::remove(path(name));
        }
    }
}

TEST_F(OtherSaves, ExcludeOurOwnAndCompareAllBytes) {
    const ModelDocument document;
    const QString file = path("m.xsi");
    std::optional<FileState> known = SaveFileXSI(document, file);
    ASSERT_TRUE(known.has_value());
    EXPECT_EQ(known->stamp, stampOf(file));
    EXPECT_EQ(keepOtherSave(file, known).fate, OtherSave::Fate::None);
    touch(file);
    EXPECT_EQ(keepOtherSave(file, known).fate, OtherSave::Fate::None) << "the bytes are ours";
    const auto stamp = stampOf(file);
    touch(file, 1001);
    EXPECT_NE(stampOf(file), stamp) << "within the same second";
    EXPECT_EQ(keepOtherSave(file, {}).fate, OtherSave::Fate::Kept) << "nothing is known of it";
    EXPECT_EQ(keepOtherSave(path("none.xsi"), known).fate, OtherSave::Fate::None);

    // bytes after the place where reading ended count as well
    const std::string broken = "xsi 0101txt 0032\nframe frm-a {\nmesh a {\nnone\n";
    const std::string text = broken + std::string(600'000, 'a');
    write("m.xsi", text);
    ModelDocument read;
    OpenNotes notes;
    ASSERT_EQ(FileOpenXSI(file, read, {}, &notes), ReadStatus::Done);
    write("m.xsi", text);
    touch(file);
    EXPECT_EQ(keepOtherSave(file, notes.file).fate, OtherSave::Fate::None);
    write("m.xsi", text + 'b');
    EXPECT_EQ(keepOtherSave(file, notes.file).fate, OtherSave::Fate::Kept);
}

TEST_F(OtherSaves, ThatCannotBeKeptAreReported) {
    const QString name = QString(251, u'n') + QStringLiteral(".xsi");
    const QString file = write(qPrintable(name), "theirs");
    const OtherSave other = keepOtherSave(file, FileState());
    EXPECT_EQ(other.fate, OtherSave::Fate::NotKept) << "names cannot be longer";
    // a file whose first page cannot be read
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), path("m.xsi")));
    EXPECT_EQ(keepOtherSave(path("m.xsi"), {}).fate, OtherSave::Fate::NotKept);
    EXPECT_EQ(filesInFolder(), 2) << "no part of a copy";
}

TEST(Checksums, TellBytesApartWhateverPiecesTheyComeIn) {
    std::set<std::uint64_t> sums;
    std::size_t texts = 0;
    const auto add = [&](const std::string& text) {
        ++texts;
        Checksum whole;
        whole.add(text);
        sums.insert(whole.value());
        for (std::size_t step = 1; step < 20; ++step) {
            Checksum pieces;
            for (std::size_t at = 0; at < text.size(); at += step) {
                pieces.add(std::string_view(text).substr(at, step));
            }
            ASSERT_EQ(pieces.value(), whole.value()) << text.size() << ' ' << step;
        }
        EXPECT_EQ(whole.size(), text.size());
    };
    const std::string text = "The quick brown fox jumps over the lazy dog";
    for (std::size_t at = 0; at < text.size(); ++at) {
        add(text.substr(0, at));
        add(std::string(at + 1, '\0')); // the empty text was added above
        for (unsigned bit = 0; bit < 8; ++bit) {
            std::string flipped = text;
            flipped[at] = static_cast<char>(flipped[at] ^ 1 << bit);
            add(flipped);
        }
    }
    EXPECT_EQ(sums.size(), texts);
}

} // namespace
} // namespace korvane
