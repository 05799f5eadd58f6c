#include "edit/recovery/RecoveryFolder.h"

#include "support/TestFiles.h"

#include <QDateTime>

#include <algorithm>
#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace korvane {
namespace {

/// Another program, which runs until killed.
class Program {
  public:
    /// Runs `work` in a process of its own, which then keeps running.
    explicit Program(const std::function<void()>& work) {
        int ready[2] = {};
        EXPECT_EQ(::pipe(ready), 0);
        id_ = ::fork();
        if (id_ == 0) {
            work();
            EXPECT_EQ(::write(ready[1], "r", 1), 1);
            for (;;) {
                ::pause();
            }
        }
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~Program() { kill(); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    void kill() {
        if (id_ > 0) {
            ::kill(id_, SIGKILL);
            ::waitpid(id_, nullptr, 0);
            id_ = 0;
        }
    }

  private:
    pid_t id_ = 0;
};

class Recovery : public test::TestFiles {
  protected:
    [[nodiscard]] RecoveryFolder recovery(const RecoveryLimits& limits = {}) const {
        return RecoveryFolder(path("state/recovery"), limits);
    }
    static ModelDocument model(const QString& name) {
        ModelDocument document;
        document.FileName = name;
        return document;
    }
    /// Leaves a copy as an ended program does.
    QString leave(const QString& name, const RecoveryLimits& limits = {}) const {
        std::optional<ClaimedCopy> place = recovery(limits).claimNewPlace();
        EXPECT_TRUE(place && place->write(model(name)));
        return place->fileName();
    }
    static void setTime(const QString& name, const QDateTime& time) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    [[nodiscard]] QStringList files() const {
        return QDir(path("state/recovery")).entryList(QDir::Files | QDir::Hidden);
    }
    static std::string names(const std::vector<LeftCopy>& left) {
        std::string all;
        for (const LeftCopy& copy : left) {
            all += copy.head.model.toStdString() + ' ';
        }
        return all;
    }
};

TEST_F(Recovery, FolderAndFilesArePrivateToTheUser) {
    const mode_t usual = ::umask(0);
    const QString copy = leave(QStringLiteral("a.xsi"));
    ::umask(usual);
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(path("state/recovery")) & others);
    for (const QString& file : files()) {
        EXPECT_FALSE(QFile::permissions(path("state/recovery/") + file) & others);
    }
    // a folder opened to others is closed again
    QFile::setPermissions(path("state/recovery"), QFile::permissions(path("state")) | others);
    leave(QStringLiteral("b.xsi"));
    EXPECT_FALSE(QFile::permissions(path("state/recovery")) & others);
}

TEST_F(Recovery, TheUsersFolderFollowsTheEnvironment) {
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    const QString home = QDir::homePath() + QStringLiteral("/.local/state");
    const std::pair<QString, QString> rows[] = {
        {folder(), folder()}, {QString(), home}, {QStringLiteral("not/absolute"), home}};
    for (const auto& [named, expected] : rows) {
        qputenv("XDG_STATE_HOME", named.toLocal8Bit());
        EXPECT_EQ(RecoveryFolder::ofUser().path(),
                  expected + QStringLiteral("/korvane-editor/recovery"));
    }
    qputenv("XDG_STATE_HOME", before);
}

TEST_F(Recovery, CopiesOfRunningProgramsArePrivateAndThoseOfKilledOnesAreClaimedOnce) {
    Program program([this] {
        static std::optional<ClaimedCopy> place;
        place = recovery().claimNewPlace();
        place->write(model(QStringLiteral("theirs.xsi")));
    });
    EXPECT_EQ(names(recovery().claimLeft()), "");
    EXPECT_EQ(files().size(), 2);
    program.kill();
    const std::vector<LeftCopy> left = recovery().claimLeft();
    EXPECT_EQ(names(left), "theirs.xsi ");
    {
        // no other start offers them
        EXPECT_EQ(names(recovery().claimLeft()), "");
        const Program other([this] {
            if (!recovery().claimLeft().empty()) {
                leave(QStringLiteral("claimed twice"));
            }
        });
        EXPECT_EQ(files().size(), 2);
    }
}

TEST_F(Recovery, ACopyStaysUntilItIsRemovedAndThenLeavesNoFiles) {
    leave(QStringLiteral("a.xsi"));
    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(names(recovery().claimLeft()), "a.xsi ") << "kept for later";
    }
    {
        std::vector<LeftCopy> left = recovery().claimLeft();
        ASSERT_EQ(left.size(), 1U);
        ASSERT_TRUE(left[0].place.read({}).has_value());
        EXPECT_TRUE(left[0].place.write(model(QStringLiteral("b.xsi"))));
        EXPECT_EQ(names(recovery().claimLeft()), "") << "still claimed";
    }
    EXPECT_EQ(names(recovery().claimLeft()), "b.xsi ");
    recovery().claimLeft().at(0).place.remove();
    EXPECT_EQ(files(), QStringList());
    // unfinished copies are removed too
    recovery().claimNewPlace().reset();
    const QString begun = leave(QStringLiteral("c.xsi"));
    write("state/recovery/0123456789abcdef.lock", "");
    write("state/recovery/0123456789abcdef.copy.Ab3xYz", "half");
    write(qPrintable(QStringLiteral("state/recovery/") + QFileInfo(begun).fileName() +
                     QStringLiteral(".Ab3xYz")),
          "half");
    write("state/recovery/notes.copy.backup", "nothing of ours");
    EXPECT_EQ(names(recovery().claimLeft()), "c.xsi ");
    EXPECT_EQ(files().size(), 3);
}

TEST_F(Recovery, DamagedCopiesAndOtherVersionsAreReportedAndKept) {
    const QString cut = leave(QStringLiteral("cut.xsi"));
    QFile(cut).resize(QFileInfo(cut).size() - 1);
    const QString newer = leave(QStringLiteral("newer.xsi"));
    {
        QFile file(newer);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(16));
        file.write("\x02");
    }
    const QString empty = leave(QStringLiteral("empty.xsi"));
    QFile(empty).resize(0);
    for (int start = 0; start < 2; ++start) {
        recovery({.copies = 0, .age = std::chrono::seconds(-10)}).makeRoom();
        recovery({.copies = 0, .age = std::chrono::seconds(-10)}).removeOld();
        const std::vector<LeftCopy> left = recovery().claimLeft();
        ASSERT_EQ(left.size(), 3U);
        for (const LeftCopy& copy : left) {
            EXPECT_EQ(copy.head.fault, copy.place.fileName() == newer ? CopyFault::OtherVersion
                                                                      : CopyFault::Damaged);
            EXPECT_FALSE(copy.place.read({}).has_value());
        }
    }
}

TEST_F(Recovery, LimitsHoldForProgramsThatHaveEnded) {
    const std::optional<ClaimedCopy> living = recovery().claimNewPlace();
    ASSERT_TRUE(living && const_cast<ClaimedCopy&>(*living).write(model(QStringLiteral("live"))));
    setTime(living->fileName(), QDateTime::currentDateTime().addDays(-400));
    const qint64 size = QFileInfo(living->fileName()).size();
    const std::tuple<const char*, RecoveryLimits, const char*> rows[] = {
        {"all", {}, "m1.x m2.x m3.x "},
        {"copies", {.copies = 2}, "m1.x m2.x "},
        {"bytes", {.bytes = static_cast<std::uint64_t>(size) * 2 + 1}, "m1.x m2.x "},
        {"too large, but the newest", {.bytes = 1}, "m1.x "},
        {"age", {.age = std::chrono::hours(24 * 2 + 1)}, "m1.x m2.x "},
        {"no copy", {.copies = 0}, ""},
    };
    for (const auto& [what, limits, expected] : rows) {
        for (int days = 1; days <= 3; ++days) {
            setTime(leave(QStringLiteral("m%1.x").arg(days)),
                    QDateTime::currentDateTime().addDays(-days));
        }
        EXPECT_EQ(names(recovery(limits).claimLeft()), "m1.x m2.x m3.x ")
            << what << ": all offered";
        recovery(limits).removeOld();
        recovery(limits).makeRoom();
        std::vector<LeftCopy> left = recovery().claimLeft();
        EXPECT_EQ(names(left), expected) << what;
        for (LeftCopy& copy : left) {
            copy.place.remove();
        }
    }
    EXPECT_EQ(files().size(), 2);
}

} // namespace
} // namespace korvane
