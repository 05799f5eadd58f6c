#include "formats/files/AtomicFile.h"
#include "formats/files/FileNames.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <algorithm>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

namespace korvane {
namespace {

using Files = test::TestFiles;

TEST_F(Files, OpeningSetsTheFlagsAndNames) {
    const QString good = write("good.x", "xof 0302txt 0064\nframe frm-a {\n frame b {\n }\n}\n");
    const QString bad = write("bad.Xsi", "no model");
    const QString empty = write("empty.x", "");
    QDir().mkdir(path("folder.x"));
    ASSERT_EQ(::mkfifo(qPrintable(path("pipe.x")), 0600), 0);
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path("device.x")));
    // a file whose first page cannot be read
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), path("unreadable.x")));
    const QString untitled = QStringLiteral("Untitled");
    const struct {
        QString file;
        ReadStatus status;
        QString caption;
        QString fileName;
        bool neverSaved;
    } rows[] = {
        {good, ReadStatus::Done, {}, good, false},
        {path("missing.x"), ReadStatus::Missing, {}, path("missing.x"), true},
        {bad, ReadStatus::NotValid, QStringLiteral("Not a valid .XSI file"), untitled, true},
        {empty, ReadStatus::NotValid, QStringLiteral("Not a valid .X file"), untitled, true},
        {path("folder.x"), ReadStatus::CannotOpen, QStringLiteral("Unable to open file"), untitled,
         true},
        {path("pipe.x"), ReadStatus::CannotOpen, QStringLiteral("Unable to open file"), untitled,
         true},
        {path("device.x"), ReadStatus::CannotOpen, QStringLiteral("Unable to open file"), untitled,
         true},
        {path("unreadable.x"), ReadStatus::CannotOpen, QStringLiteral("Unable to open file"),
         untitled, true},
    };
    for (const auto& row : rows) {
        ModelDocument document;
        EXPECT_EQ(FileOpenXSI(row.file, document), row.status) << qPrintable(row.file);
        EXPECT_EQ(failureCaption(row.status, row.file), row.caption);
        EXPECT_EQ(document.FileName, row.fileName);
        EXPECT_EQ(document.NeverSaved, row.neverSaved);
        EXPECT_EQ(document.Modified, row.neverSaved);
        EXPECT_EQ(document.Root.SelectState, SelectState::Selected);
        EXPECT_EQ(document.Root.Children.size(), row.neverSaved ? 0U : 1U);
    }
}

TEST_F(Files, DialogsStartFromTheNameOfTheModel) {
    const struct {
        const char* name;
        const char* folder;
        const char* offered;
    } rows[] = {
        {"Untitled 1", "", "Untitled 1.xsi"},     {"/m/ship.xsi", "/m/", "ship.xsi"},
        {"/m/SHIP.XSI", "/m/", "SHIP.XSI"},       {"/m/ship.x", "/m/", "ship.xsi"},
        {"/m/ship.v2.MSH", "/m/", "ship.v2.xsi"}, {"/ship.v2", "/", "ship.v2.xsi"},
        {"/m.x/ship", "/m.x/", "ship.xsi"},
    };
    for (const auto& row : rows) {
        const QString name = QString::fromLatin1(row.name);
        EXPECT_EQ(folderOf(name).toStdString(), row.folder) << row.name;
        EXPECT_EQ(offeredName(name).toStdString(), row.offered) << row.name;
    }
}

TEST_F(Files, ReadingTellsItsProgressAndCanBeCancelled) {
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
    EXPECT_EQ(part.Root.Name, "") << "no half a model";
    EXPECT_EQ(failureCaption(ReadStatus::Cancelled, name), QString()) << "no failure";
}

TEST_F(Files, ExtensionsDecideInAnyCase) {
    const struct {
        const char* name;
        const char* extension;
        ModelFileKind kind;
    } rows[] = {{"/a/b.xsi", ".XSI", ModelFileKind::Xsi},
                {"b.X", ".X", ModelFileKind::DirectX},
                {"b.msh", ".MSH", ModelFileKind::Msh},
                {"/a.x/b", "", ModelFileKind::None},
                {"a.x.txt", ".TXT", ModelFileKind::None},
                {".x", ".X", ModelFileKind::DirectX},
                {"--a.x", ".X", ModelFileKind::DirectX},
                {"x", "", ModelFileKind::None},
                {"", "", ModelFileKind::None}};
    for (const auto& row : rows) {
        const QString name = QString::fromLatin1(row.name);
        EXPECT_EQ(upperExtension(name), QString::fromLatin1(row.extension));
        EXPECT_EQ(modelFileKind(name), row.kind) << row.name;
    }
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
    // ".." in a link is above the folder that the link is in, not above the link to that folder
    write("real/deep/file", "");
    ASSERT_TRUE(QFile::link(QStringLiteral("real/deep"), path("alias")));
    const QString above = write("real/t.xsi", "old");
    ASSERT_TRUE(QFile::link(QStringLiteral("../t.xsi"), path("real/deep/link.xsi")));
    EXPECT_TRUE(SaveFileXSI(document, path("alias/link.xsi")));
    EXPECT_EQ(content(above), expected);
    EXPECT_TRUE(QFileInfo(path("real/deep/link.xsi")).isSymbolicLink());
    EXPECT_EQ(filesInFolder(), 4);
}

/// Gives new files of this process other permissions than usual.
class FileMask {
  public:
    explicit FileMask(mode_t mask) : before_(::umask(mask)) {}
    ~FileMask() { ::umask(before_); }
    FileMask(const FileMask&) = delete;
    FileMask& operator=(const FileMask&) = delete;

  private:
    mode_t before_;
};

TEST_F(Files, SavingKeepsThePermissionsWhateverNewFilesGet) {
    const QString target = write("target.xsi", "old");
    for (const mode_t mask : {0U, 022U, 0777U}) {
        const FileMask newFiles(mask);
        for (const mode_t permissions : {0600U, 0640U, 0604U, 0666U}) {
            ASSERT_EQ(::chmod(qPrintable(target), permissions), 0);
            EXPECT_TRUE(SaveFileXSI(ModelDocument(), target));
            struct stat saved = {};
            ASSERT_EQ(::stat(qPrintable(target), &saved), 0);
            EXPECT_EQ(saved.st_mode & 0777U, permissions);
        }
    }
}

TEST_F(Files, WhatIsNoFileIsNotSavedInto) {
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

TEST_F(Files, ASaveThatBreaksOffLeavesTheOldFile) {
    const QString target = write("old.xsi", "old");
    for (const bool thrown : {false, true}) {
        EXPECT_FALSE(replaceFile(target, [thrown](const TextSink& sink) {
            EXPECT_TRUE(sink("half"));
            return thrown ? throw std::bad_alloc() : false;
        }));
        EXPECT_EQ(content(target), "old");
        EXPECT_EQ(filesInFolder(), 1);
    }
}

/// Lets no file of this process grow beyond a size, as a full disk would.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit before_{};
};

TEST_F(Files, ADiskThatRunsFullLeavesTheOldFile) {
    const QString target = write("old.xsi", "old");
    ModelDocument document;
    document.Root.HasMesh = true;
    document.Root.Mesh.Vertices.resize(100000);
    {
        const FileSizeLimit limit(10000);
        EXPECT_FALSE(SaveFileXSI(document, target));
    }
    EXPECT_EQ(content(target), "old");
    EXPECT_EQ(filesInFolder(), 1);
    document.Root.Mesh.Vertices.resize(10); // fails only when the last bytes are flushed
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(SaveFileXSI(document, target));
    }
    EXPECT_EQ(content(target), "old");
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(Files, OverwritingGivesTheOldContentsBackWhenItFails) {
    const QString target = write("old.xsi", "old contents");
    const auto put = [&target](const std::string& text) {
        return overwriteFile(target, [&text](const TextSink& sink) { return sink(text); });
    };
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(put(std::string(1000, 'n')));
    }
    EXPECT_EQ(content(target), "old contents");
    EXPECT_FALSE(overwriteFile(target, [](const TextSink& sink) {
        sink("half");
        return false;
    }));
    EXPECT_FALSE(overwriteFile(target, [](const TextSink&) -> bool { throw std::bad_alloc(); }));
    EXPECT_EQ(content(target), "old contents");
    EXPECT_TRUE(put("new"));
    EXPECT_EQ(content(target), "new");
    EXPECT_FALSE(overwriteFile(path("none.xsi"), [](const TextSink&) { return true; }));
    EXPECT_EQ(filesInFolder(), 1);
}

TEST(Reading, WhereTheBytesBreakOffNothingIsKept) {
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
