#include "tool/Report.h"

#include "tool/FileName.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <string>
#include <unistd.h>
#include <utility>

namespace korvane::tool {

namespace {

/// Shows progress on standard error, in a line that it erases again.
class Counter {
  public:
    explicit Counter(bool wanted)
        : shows_(wanted && isatty(STDERR_FILENO) != 0), outer_(std::exchange(current, this)) {}
    ~Counter() {
        clear();
        current = outer_;
    }
    Counter(const Counter&) = delete;
    Counter& operator=(const Counter&) = delete;

    void show(qsizetype number, qsizetype count) {
        if (shows_) {
            text_ = std::to_string(number) + " of " + std::to_string(count);
            std::fprintf(stderr, "\r%s", text_.c_str());
        }
    }
    void clear() {
        if (!text_.empty()) {
            std::fprintf(stderr, "\r%s\r", std::string(text_.size(), ' ').c_str());
            text_.clear();
        }
    }

    static Counter* current; ///< the one shown, or null

  private:
    bool shows_;
    std::string text_;
    Counter* outer_;
};

Counter* Counter::current = nullptr;

} // namespace

void guardStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            // for the opposite direction, so that using it still fails
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
}

void print(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
        throw OutputFailure(errno == EPIPE);
    }
}

void finishOutput() {
    if (std::fflush(stdout) != 0) {
        throw OutputFailure(errno == EPIPE);
    }
}

void report(std::string_view line) {
    if (Counter::current != nullptr) {
        Counter::current->clear();
    }
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void reportRefusal(const QString& file, const QString& reason) {
    report(printable(file) + ": " + printable(reason) + "\n");
}

ExitStatus forEachInput(const QStringList& inputs, bool count,
                        const std::function<void(qsizetype)>& work) {
    Counter counter(count);
    ExitStatus worst = ExitStatus::Done;
    const auto refuse = [&](const QString& file, const QString& reason) {
        reportRefusal(file, reason);
        worst = ExitStatus::Refused;
    };
    for (qsizetype i = 0; i < inputs.size(); ++i) {
        counter.show(i + 1, inputs.size());
        try {
            work(i);
        } catch (const Refusal& refusal) {
            refuse(refusal.file, refusal.reason);
        } catch (const std::bad_alloc&) {
            refuse(inputs[i], QStringLiteral("Not enough memory"));
        }
    }
    return worst;
}

} // namespace korvane::tool
