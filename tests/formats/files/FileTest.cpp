#include "formats/files/AtomicFile.h"
#include "formats/files/FileNames.h"
#include "support/FileSizeLimit.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <algorithm>
#include <functional>
#include <sys/stat.h>
#include <vector>

namespace korvane {
namespace {

using Files = test::TestFiles;

TEST_F(Files, OpeningSetsTheFlagsAndNames) {
    write("good.x", "xof 0302txt 0064\nframe frm-a {\n frame b {\n }\n}\n");
    write("bad.Xsi", "no model");
    write("empty.x", "");
    QDir().mkdir(path("folder.x"));
    ASSERT_EQ(::mkfifo(qPrintable(path("pipe.x")), 0600), 0);
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path("device.x")));
    // a file whose first page cannot be read
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), path("unreadable.x")));
    const struct {
        const char* file;
        ReadStatus status;
        const char* caption;
    } rows[] = {
        {"good.x", ReadStatus::Done, ""},
        {"missing.x", ReadStatus::Missing, ""},
        {"bad.Xsi", ReadStatus::NotValid, "Not a valid .XSI file"},
        {"empty.x", ReadStatus::NotValid, "Not a valid .X file"},
        {"folder.x", ReadStatus::CannotOpen, "Unable to open file"},
        {"pipe.x", ReadStatus::CannotOpen, "Unable to open file"},
        {"device.x", ReadStatus::CannotOpen, "Unable to open file"},
        {"unreadable.x", ReadStatus::CannotOpen, "Unable to open file"},
    };
    for (const auto& row : rows) {
        const QString file = path(row.file);
        ModelDocument document;
        EXPECT_EQ(FileOpenXSI(file, document), row.status) << row.file;
        const QString caption = failureCaption(row.status, file);
        EXPECT_EQ(caption.toStdString(), row.caption);
        EXPECT_EQ(document.FileName, caption.isEmpty() ? file : QStringLiteral("Untitled"));
        const bool done = row.status == ReadStatus::Done;
        EXPECT_NE(document.NeverSaved, done);
        EXPECT_NE(document.Modified, done);
        EXPECT_EQ(document.Root.SelectState, SelectState::Selected);
        EXPECT_EQ(document.Root.Children.size(), done ? 1U : 0U);
    }
}

TEST_F(Files, NamesGiveFolderKindAndSuggestion) {
    using enum ModelFileKind;
    const struct {
        const char* name;
        const char* extension;
        ModelFileKind kind;
        const char* folder;
        const char* offered;
    } rows[] = {{"Untitled 1", "", None, "", "Untitled 1.xsi"},
                {"/m/ship.xsi", ".XSI", Xsi, "/m/", "ship.xsi"},
                {"/m/SHIP.XSI", ".XSI", Xsi, "/m/", "SHIP.XSI"},
                {"/m/ship.x", ".X", DirectX, "/m/", "ship.xsi"},
                {"/m/ship.v2.MSH", ".MSH", Msh, "/m/", "ship.v2.xsi"},
                {"/ship.v2", ".V2", None, "/", "ship.v2.xsi"},
                {"/m.x/ship", "", None, "/m.x/", "ship.xsi"},
                {"--a.x", ".X", DirectX, "", "--a.xsi"},
                {".x", ".X", DirectX, "", ".xsi"},
                {"", "", None, "", ".xsi"}};
    for (const auto& row : rows) {
        const QString name = QString::fromLatin1(row.name);
        EXPECT_EQ(upperExtension(name).toStdString(), row.extension) << row.name;
        EXPECT_EQ(modelFileKind(name), row.kind) << row.name;
        EXPECT_EQ(folderOf(name).toStdString(), row.folder) << row.name;
        EXPECT_EQ(offeredName(name).toStdString(), row.offered) << row.name;
    }
}

TEST_F(Files, ReadingReportsProgressAndCanBeCancelled) {
    std::string text = "xof 0302txt 0064\nframe frm-a {\n";
    text.append(std::size_t{1} << 20U, '\n'); // several windows full
    const QString name = write("long.x", text + "frame b {\n}\n}\n");
    const auto size = static_cast<std::size_t>(QFileInfo(name).size());
    std::vector<std::size_t> told;
    const auto readUntil = [&](std::size_t stop, ModelDocument& document) {
        told.clear();
        return FileOpenXSI(name, document, [&](std::size_t done, std::size_t whole) {
            EXPECT_EQ(whole, size);
            told.push_back(done);
            return told.size() < stop;
        });
    };
    ModelDocument whole;
    EXPECT_EQ(readUntil(1000, whole), ReadStatus::Done);
    EXPECT_EQ(whole.Root.Children.size(), 1U);
    EXPECT_GT(told.size(), 3U);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), size);

    ModelDocument part;
    EXPECT_EQ(readUntil(3, part), ReadStatus::Cancelled);
    EXPECT_EQ(told.size(), 3U);
    EXPECT_EQ(part.Root.Name, "") << "no partial model";
    EXPECT_EQ(failureCaption(ReadStatus::Cancelled, name), QString()) << "no failure";
}

TEST_F(Files, SavingReplacesTheFileAndKeepsLinks) {
    const QString target = write("target.xsi", "old");
    ASSERT_TRUE(QFile::link(QStringLiteral("target.xsi"), path("one.xsi")));
    ASSERT_TRUE(QFile::link(path("one.xsi"), path("two.xsi")));
    const ModelDocument document;
    const std::string expected = test::writeText(document);
    EXPECT_TRUE(SaveFileXSI(document, path("two.xsi")));
    EXPECT_EQ(content(target), expected);
    EXPECT_TRUE(QFileInfo(path("one.xsi")).isSymbolicLink());
    EXPECT_TRUE(QFileInfo(path("two.xsi")).isSymbolicLink());
    EXPECT_TRUE(SaveFileXSI(document, path("new.xsi")));
    EXPECT_EQ(content(path("new.xsi")), expected);
    EXPECT_EQ(filesInFolder(), 4);
    // ".." in a link is the parent of the folder that holds the link, not of a link to that folder
    write("real/deep/file", "");
    ASSERT_TRUE(QFile::link(QStringLiteral("real/deep"), path("alias")));
    const QString above = write("real/t.xsi", "old");
    ASSERT_TRUE(QFile::link(QStringLiteral("../t.xsi"), path("real/deep/link.xsi")));
    EXPECT_TRUE(SaveFileXSI(document, path("alias/link.xsi")));
    EXPECT_EQ(content(above), expected);
    EXPECT_TRUE(QFileInfo(path("real/deep/link.xsi")).isSymbolicLink());
    EXPECT_EQ(filesInFolder(), 4);
    // no file beside this one can have its name and more
    const QString longest = write((std::string(251, 'n') + ".xsi").c_str(), "old");
    const std::optional<FileState> saved = SaveFileXSI(document, longest);
    EXPECT_EQ(content(longest), expected);
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->stamp, stampOf(longest)) << "our own, even if written at the second attempt";
}

TEST_F(Files, SavingRefusesWhatIsNoFile) {
    const ModelDocument document;
    EXPECT_FALSE(SaveFileXSI(document, path("no/such/folder.xsi")));
    QDir().mkdir(path("folder.xsi"));
    EXPECT_FALSE(SaveFileXSI(document, path("folder.xsi")));
    ASSERT_TRUE(QFile::link(path("round.xsi"), path("round.xsi")));
    EXPECT_FALSE(SaveFileXSI(document, path("round.xsi")));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), path("device.xsi")));
    EXPECT_FALSE(SaveFileXSI(document, path("device.xsi")));
    EXPECT_FALSE(QFileInfo(QStringLiteral("/dev/full")).isFile());
}

using Replace = bool (*)(const QString&, const std::function<bool(const TextSink&)>&);

TEST_F(Files, ASaveThatFailsLeavesTheOldContents) {
    const QString target = write("old.xsi", "old contents");
    for (const Replace replace :
         {Replace(replaceFile), Replace(overwriteFile), Replace(replaceOwnFile)}) {
        // far beyond the limit, and so little that only the last flush fails
        for (const rlim_t most : {10000U, 100U}) {
            const test::FileSizeLimit limit(most);
            EXPECT_FALSE(replace(target, [most](const TextSink& sink) {
                return sink("half") && sink(std::string(most < 1000 ? 500 : 1000000, 'n'));
            }));
        }
        for (const bool thrown : {false, true}) {
            EXPECT_FALSE(replace(target, [thrown](const TextSink& sink) {
                EXPECT_TRUE(sink("half"));
                return thrown ? throw std::bad_alloc() : false;
            }));
        }
        EXPECT_EQ(content(target), "old contents");
        EXPECT_EQ(filesInFolder(), 1);
    }
    EXPECT_TRUE(overwriteFile(target, [](const TextSink& sink) { return sink("new"); }));
    EXPECT_EQ(content(target), "new");
    EXPECT_FALSE(overwriteFile(path("none.xsi"), [](const TextSink&) { return true; }));
    // a new file whose writing fails is not created
    const auto half = [](const TextSink& sink) {
        sink("half");
        return false;
    };
    EXPECT_FALSE(replaceFile(path("none.xsi"), half));
    EXPECT_EQ(makeFile(path("none.xsi"), target, half), MadeFile::Failed);
    EXPECT_EQ(filesInFolder(), 1);
}

TEST(Reading, AReadErrorLeavesTheDocumentEmpty) {
    const std::string text = "xof 0302txt 0064\nframe frm-a {\n}\n";
    std::size_t calls = 0;
    TextWindow window(
        [&](std::span<char> space) {
            if (++calls > 1) {
                throw std::runtime_error("gone");
            }
            return text.copy(space.data(), space.size());
        },
        2 * text.size());
    ModelDocument document;
    EXPECT_EQ(readXsi(TextScanner(window), document), ReadStatus::CannotOpen);
    EXPECT_GT(calls, 1U);
    EXPECT_EQ(document.Root, FrameRecord());
}

} // namespace
} // namespace korvane
