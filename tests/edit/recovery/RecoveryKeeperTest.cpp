#include "edit/recovery/RecoveryKeeper.h"

#include "support/TestFiles.h"

#include <utility>

namespace korvane {
namespace {

using namespace std::chrono_literals;

TEST(CopyPace, LimitsCopiesToAShareOfTheTime) {
    using Time = CopyPace::Time;
    const struct {
        Time cost;
        Time pause; ///< from its beginning until the next one is due
    } rows[] = {{0ms, 100ms}, {1ms, 100ms}, {3ms, 100ms}, {4ms, 120ms}, {200ms, 6s}};
    for (const auto& row : rows) {
        CopyPace pace;
        EXPECT_EQ(pace.wait(0ms), 0ms) << "the first one at once";
        pace.made(1s, 1s + row.cost);
        EXPECT_EQ(pace.wait(1s + row.cost), row.pause - row.cost);
        EXPECT_EQ(pace.wait(1s + row.pause - 1us), 1us);
        EXPECT_EQ(pace.wait(1s + row.pause), 0ms);
        EXPECT_EQ(pace.wait(1s + row.pause + 1h), 0ms);
        pace.failed(1s);
        EXPECT_EQ(pace.wait(1s), 10s);
    }
}

class Keeper : public test::TestFiles {
  protected:
    [[nodiscard]] RecoveryFolder recovery() const { return RecoveryFolder(path("recovery")); }
    /// The root's name in the only copy; "-" without one.
    [[nodiscard]] std::string copied() const {
        const QStringList copies =
            QDir(path("recovery")).entryList({QStringLiteral("*.copy")}, QDir::Files);
        EXPECT_LE(copies.size(), 1);
        if (copies.isEmpty()) {
            return "-";
        }
        QFile file(path("recovery/") + copies.front());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        const auto model = readCopy({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                     static_cast<std::size_t>(bytes.size())},
                                    {});
        return model ? model->Root.Name : "damaged";
    }
    void change(const char* name) {
        document_.Root.Name = name;
        ++document_.Revision;
    }

    CopyPace::Time now_ = 0ms;
    CopyPace::Time step_ = 1ms; ///< by which each look at the clock advances it
    RecoveryKeeper keeper_{recovery(), [this] { return std::exchange(now_, now_ + step_); }};
    ModelDocument document_;
};

TEST_F(Keeper, CopiesEachChangeWhenDue) {
    using When = RecoveryKeeper::When;
    change("a");
    const KeepOutcome first = keeper_.keep(document_, When::Due);
    EXPECT_FALSE(first.failed || first.wait.has_value());
    EXPECT_EQ(copied(), "a");
    change("b");
    KeepOutcome outcome = keeper_.keep(document_, When::Due);
    EXPECT_EQ(outcome.wait, 98ms) << "the clock has advanced by two";
    EXPECT_EQ(copied(), "a");
    now_ += 99ms;
    outcome = keeper_.keep(document_, When::Due);
    EXPECT_EQ(copied(), "b");
    change("c");
    keeper_.keep(document_, When::Now);
    EXPECT_EQ(copied(), "c") << "before it is due";
    // a running drag counts, and so does a new name
    document_.Root.Name = "d";
    ++document_.LiveChanges;
    keeper_.keep(document_, When::Now);
    EXPECT_EQ(copied(), "d");
    document_.Root.Name = "not told";
    keeper_.keep(document_, When::Now);
    EXPECT_EQ(copied(), "d") << "the copy is current";
    document_.FileName = QStringLiteral("other.xsi");
    keeper_.keep(document_, When::Now);
    EXPECT_EQ(copied(), "not told");
    keeper_.drop();
    EXPECT_EQ(copied(), "-");
    EXPECT_TRUE(QDir(path("recovery")).isEmpty());
    now_ += 1s;
    keeper_.keep(document_, When::Due);
    EXPECT_EQ(copied(), "not told") << "the dropped copy does not count";
}

TEST_F(Keeper, RemakesAMissingFolderAndRetriesLessOftenIfThatFails) {
    using When = RecoveryKeeper::When;
    change("a");
    keeper_.keep(document_, When::Now);
    ASSERT_TRUE(QDir(path("recovery")).removeRecursively());
    change("b");
    keeper_.keep(document_, When::Now);
    EXPECT_EQ(copied(), "b");
    ASSERT_TRUE(QDir(path("recovery")).removeRecursively());
    write("recovery", "no folder");
    change("c");
    const KeepOutcome outcome = keeper_.keep(document_, When::Now);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(outcome.wait, 10s);
    EXPECT_FALSE(keeper_.keep(document_, When::Due).failed) << "not retried so soon";
    ASSERT_TRUE(QFile::remove(path("recovery")));
    now_ += 10s;
    EXPECT_FALSE(keeper_.keep(document_, When::Due).failed);
    EXPECT_EQ(copied(), "c");
}

} // namespace
} // namespace korvane
