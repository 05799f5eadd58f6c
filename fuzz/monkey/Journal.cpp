#include "Journal.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace korvane::monkey {

namespace {

constexpr std::size_t kept = 30;
constexpr unsigned longest = 60; // seconds

std::array<std::string, kept> actions; ///< a ring
std::atomic<std::int64_t> count = 0;
std::uint32_t storySeed = 0;
bool printing = false;

/// Also called from a signal handler: any damage is harmless, as the program ends anyway.
void printStory() {
    std::fprintf(stderr, "\nseed %u, action %lld; the last ones:\n", storySeed,
                 static_cast<long long>(count));
    const auto end = static_cast<std::size_t>(count);
    for (std::size_t i = end > kept ? end - kept : 0; i < end; ++i) {
        std::fprintf(stderr, "  %s\n", actions[i % kept].c_str());
    }
    std::fflush(stderr);
}

void onSignal(int signal) {
    std::fputs(signal == SIGALRM ? "\nFAULT: an action took over a minute\n"
                                 : "\nFAULT: the program crashed\n",
               stderr);
    printStory();
    _exit(1);
}

} // namespace

void watchProgram() {
    std::signal(SIGALRM, onSignal);
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback(printStory);
#else
    std::signal(SIGSEGV, onSignal);
#endif
    std::signal(SIGABRT, onSignal);
}

void printActions(bool wanted) {
    printing = wanted;
}

void beginStory(std::uint32_t seed) {
    storySeed = seed;
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
}

void note(const QString& action) {
    alarm(longest);
    std::string& entry = actions[static_cast<std::size_t>(count) % kept];
    entry = action.toStdString();
    ++count;
    if (printing) {
        std::printf("  %s\n", entry.c_str());
        std::fflush(stdout);
    }
}

std::int64_t actionCount() {
    return count;
}

void fail(const QString& fault) {
    std::fprintf(stderr, "\nFAULT: %s\n", qPrintable(fault));
    printStory();
    std::fflush(stdout);
    std::_Exit(1);
}

} // namespace korvane::monkey
