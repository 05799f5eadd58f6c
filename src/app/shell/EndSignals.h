#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace korvane {

/// Catches the signals by which the system, a terminal or another program ends this one (SIGTERM,
/// SIGHUP, SIGINT), as long as the object lives. The next event loop to look for events, that of a
/// dialog or of a long read included, calls a function and then lets the signal end the program, so
/// that whoever waits for the program sees what ended it. A signal that was ignored when the
/// program started stays ignored.
///
/// Ends come in pairs: a terminal that closes hangs up twice, and a login that ends may send
/// SIGTERM and SIGHUP at once. So whatever else comes within a second belongs to the first signal;
/// what comes later, while the function or the event loop still keeps the program, ends it at once.
///
/// Other platforms than Unix have no such signals. Only one object may live at a time.
class EndSignals {
  public:
    /// Calls `beforeEnd`, where there is one, before the program ends. What it throws is dropped.
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
