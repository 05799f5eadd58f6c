#include "formats/files/FileRights.h"

#include "formats/files/AtomicFile.h"
#include "support/TestFiles.h"

#include <array>
#include <vector>

#ifdef Q_OS_LINUX
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace korvane {
namespace {

constexpr const char* accessList = "system.posix_acl_access";
constexpr const char* listForNewFiles = "system.posix_acl_default";

/// Returns an access list in the kernel's format: the owner and one more user may read and write,
/// the group and all others may not.
QByteArray listWith(std::uint32_t user) {
    struct Entry {
        std::uint16_t tag, permissions;
        std::uint32_t id;
    };
    constexpr std::uint32_t nobody = 0xffffffff;
    const std::array<Entry, 5> entries = {
        {{1, 6, nobody}, {2, 6, user}, {4, 0, nobody}, {16, 6, nobody}, {32, 0, nobody}}};
    constexpr std::uint32_t version = 2;
    return QByteArray(reinterpret_cast<const char*>(&version), sizeof version) +
           QByteArray(reinterpret_cast<const char*>(entries.data()), sizeof entries);
}

bool setAttribute(const QString& file, const char* name, const QByteArray& value) {
    return ::setxattr(qPrintable(file), name, value.constData(),
                      static_cast<std::size_t>(value.size()), 0) == 0;
}

ino_t fileNumber(const QString& file) {
    struct stat found = {};
    ::stat(qPrintable(file), &found);
    return found.st_ino;
}

bool saveNew(const QString& file) {
    return replaceFile(file, [](const TextSink& sink) { return sink("new"); });
}

struct User {
    uid_t id;
    gid_t group;
    std::vector<gid_t> groups;
};

/// Saves in a process of that user, and returns its result.
bool saveAs(const User& user, const QString& file) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool became = ::setgroups(user.groups.size(), user.groups.data()) == 0 &&
                            ::setgid(user.group) == 0 && ::setuid(user.id) == 0;
        ::_exit(became && saveNew(file) ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class Rights : public test::TestFiles {
  protected:
    void SetUp() override {
        model_ = write("m.xsi", "old");
        if (!setAttribute(model_, "user.note", "by hand") ||
            !setAttribute(model_, accessList, listWith(1001))) {
            GTEST_SKIP() << "no access lists here";
        }
        ::removexattr(qPrintable(model_), accessList);
    }
    QString model_;
};

TEST_F(Rights, AreKeptWhoeverSaves) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can be several users";
    }
    constexpr gid_t team = 100;
    const struct {
        const char* what;
        gid_t group;
        mode_t mode;
        bool list; ///< which lets 1001 write
        User saver;
        bool saved;
        bool inPlace;
    } rows[] = {
        {"owner", 1000, 0600, false, {1000, 1000, {}}, true, false},
        {"owner of a file with a list", 1000, 0600, true, {1000, 1000, {}}, true, false},
        {"owner in the group", team, 0660, false, {1000, 1000, {team}}, true, false},
        {"owner not in the group", team, 0660, false, {1000, 1000, {}}, true, true},
        {"member", team, 0660, false, {1001, 1001, {team}}, true, true},
        {"member by first group", team, 0664, false, {1001, team, {}}, true, true},
        {"one in the list", 1000, 0600, true, {1001, 1001, {}}, true, true},
        {"one not in the list", 1000, 0600, true, {1002, 1002, {}}, false, true},
        {"anybody", 1000, 0666, false, {1002, 1002, {}}, true, true},
        {"reader", team, 0644, false, {1001, 1001, {team}}, false, true},
        {"root", team, 0640, true, {0, 0, {}}, true, false},
    };
    ASSERT_EQ(::chmod(qPrintable(folder()), 0777), 0);
    for (const bool othersForNewFiles : {false, true}) {
        ASSERT_TRUE(!othersForNewFiles || setAttribute(folder(), listForNewFiles, listWith(1002)));
        const mode_t usual = ::umask(othersForNewFiles ? 0777 : 0);
        for (const auto& row : rows) {
            write("m.xsi", "old");
            ASSERT_EQ(::chown(qPrintable(model_), 1000, row.group), 0);
            ::removexattr(qPrintable(model_), accessList);
            ASSERT_EQ(::chmod(qPrintable(model_), row.mode), 0);
            ASSERT_TRUE(!row.list || setAttribute(model_, accessList, listWith(1001)));
            const auto before = rightsOf(model_);
            ASSERT_EQ(before->attributes.size(), row.list ? 2U : 1U);
            const ino_t number = fileNumber(model_);
            EXPECT_EQ(saveAs(row.saver, model_), row.saved) << row.what;
            EXPECT_EQ(content(model_), row.saved ? "new" : "old") << row.what;
            EXPECT_EQ(rightsOf(model_), before) << row.what;
            EXPECT_EQ(fileNumber(model_) == number, row.inPlace) << row.what;
            EXPECT_EQ(filesInFolder(), 1) << row.what;
        }
        ::umask(usual);
    }
    // nobody else can make a file in the folder
    ASSERT_EQ(::chmod(qPrintable(folder()), 0755), 0);
    ASSERT_EQ(::chmod(qPrintable(model_), 0666), 0);
    write("m.xsi", "old");
    EXPECT_TRUE(saveAs({1000, 1000, {}}, model_));
    EXPECT_EQ(content(model_), "new");
}

} // namespace
} // namespace korvane

#endif
