#include "app/shell/EndSignals.h"

#include "support/ChildProcess.h"

#include <QEventLoop>

#include <gtest/gtest.h>

#include <csignal>
#include <ctime>
#include <new>
#include <string_view>
#include <vector>

namespace korvane::test {
namespace {

/// Returns how a program ends that gets the signals before its event loop runs, takes the time
/// `keeping` to save its work and then gets one more signal.
std::string endBy(const std::vector<int>& signals, timespec keeping, int last) {
    return endOfChild([&](int out) {
        const auto tell = [out](std::string_view text) {
            EXPECT_EQ(write(out, text.data(), text.size()), static_cast<ssize_t>(text.size()));
        };
        const EndSignals endSignals([&] {
            tell("keeps, ");
            nanosleep(&keeping, nullptr);
            std::raise(last);
            tell("has kept, ");
            throw std::bad_alloc(); // must not keep the program alive
        });
        for (const int signal : signals) {
            std::raise(signal);
        }
        QEventLoop().exec();
    });
}

TEST(EndSignals, FirstSignalEndsTheProgramOnceItsWorkIsKept) {
    constexpr timespec soon = {};
    constexpr timespec late = {1, 100'000'000};
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        EXPECT_EQ(endBy({signal}, soon, signal),
                  "keeps, has kept, signal " + std::to_string(signal));
    }
    EXPECT_EQ(endBy({SIGTERM, SIGHUP}, soon, SIGINT), "keeps, has kept, signal 15");
    EXPECT_EQ(endBy({SIGTERM}, late, SIGINT), "keeps, signal 2") << "a late signal ends it at once";
    const auto usual = std::signal(SIGHUP, SIG_IGN); // as nohup does
    EXPECT_EQ(endBy({SIGHUP, SIGTERM}, soon, SIGHUP), "keeps, has kept, signal 15");
    std::signal(SIGHUP, usual);
}

} // namespace
} // namespace korvane::test
