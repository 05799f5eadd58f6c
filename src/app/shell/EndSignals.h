#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace korvane {

/// While the object exists, catches the signals by which the system, a terminal or another program
/// ends this one (SIGTERM, SIGHUP, SIGINT). The event loop that runs next, even that of a dialog or
/// of a long read, calls a function and then lets the signal end the program, so that a waiting
/// parent process sees its cause. Signals ignored at the program's start stay ignored.
///
/// These signals come in pairs: a closing terminal hangs up twice, and a logout may send SIGTERM
/// and SIGHUP at once. So further signals within a second of the first are dropped; a later one
/// ends the program at once, even if the function or the event loop is still busy.
///
/// Does nothing on platforms other than Unix. Only one object may exist at a time.
class EndSignals {
  public:
    /// Calls `beforeEnd`, unless it is empty, before the program ends. Drops its exceptions.
    explicit EndSignals(std::function<void()> beforeEnd);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

  private:
    void end(int signal) const;

    std::function<void()> beforeEnd_;
    std::unique_ptr<QSocketNotifier> wake_;
};

} // namespace korvane
