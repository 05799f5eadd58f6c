#include "app/shell/EndSignals.h"

#include <QSocketNotifier>

#include <utility>

#ifdef Q_OS_UNIX

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <fcntl.h>
#include <unistd.h>

namespace korvane {

namespace {

constexpr std::array ends = {SIGTERM, SIGHUP, SIGINT};

using Nanoseconds = std::int64_t;
constexpr Nanoseconds second = 1'000'000'000;

// The signal handler uses these; it can interrupt any code on any thread.
std::array<int, 2> pipeEnds = {-1, -1}; ///< to read from and to write to; set before the handler
std::atomic<Nanoseconds> firstAt = 0;   ///< when the first signal came; 0 before
static_assert(std::atomic<Nanoseconds>::is_always_lock_free);

Nanoseconds now() {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return Nanoseconds{time.tv_sec} * second + time.tv_nsec;
}

void handle(int signal) {
    const int error = errno;
    const auto number = static_cast<unsigned char>(signal);
    Nanoseconds first = 0;
    const Nanoseconds time = now();
    if (!firstAt.compare_exchange_strong(first, time)) {
        if (time - first >= second) {
            std::signal(signal, SIG_DFL);
            std::raise(signal); // delivered when this handler returns
        }
    } else if (write(pipeEnds[1], &number, 1) != 1) {
        // cannot happen, since the pipe is empty; if it does, a later signal ends the program
    }
    errno = error;
}

bool makePipe() {
    if (pipe(pipeEnds.data()) != 0) {
        return false;
    }
    for (const int end : pipeEnds) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    return true;
}

void setAction(int signal, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

bool isDefault(int signal) {
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL;
}

bool isCaught(int signal) {
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == handle;
}

[[noreturn]] void endBy(int signal) {
    setAction(signal, SIG_DFL);
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, signal);
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
    std::raise(signal);
    // the first process of a container survives its own signals
    constexpr int endedBySignal = 128;
    std::_Exit(endedBySignal + signal);
}

} // namespace

EndSignals::EndSignals(std::function<void()> beforeEnd) : beforeEnd_(std::move(beforeEnd)) {
    firstAt = 0;
    if (!makePipe()) {
        return; // signals end the program without notice
    }
    wake_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(wake_.get(), &QSocketNotifier::activated, [this] {
        unsigned char signal = 0;
        if (read(pipeEnds[0], &signal, 1) == 1) {
            end(signal);
        }
    });
    for (const int signal : ends) {
        if (isDefault(signal)) {
            setAction(signal, handle);
        }
    }
}

EndSignals::~EndSignals() {
    for (const int signal : ends) {
        if (isCaught(signal)) {
            setAction(signal, SIG_DFL);
        }
    }
    if (wake_) {
        wake_.reset();
        close(pipeEnds[0]);
        close(pipeEnds[1]);
    }
}

void EndSignals::end(int signal) const {
    try {
        if (beforeEnd_) {
            beforeEnd_();
        }
    } catch (const std::exception&) {
        // memory ran out, and it is too late to tell the user
    }
    endBy(signal);
}

} // namespace korvane

#else

namespace korvane {

EndSignals::EndSignals(std::function<void()> beforeEnd) : beforeEnd_(std::move(beforeEnd)) {}
EndSignals::~EndSignals() = default;
void EndSignals::end(int /*signal*/) const {}

} // namespace korvane

#endif
