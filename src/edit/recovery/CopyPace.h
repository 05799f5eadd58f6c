#pragma once

#include <algorithm>
#include <chrono>

namespace korvane {

/// How often copies of a model are made: they take no more than a share of the time, whatever one
/// of them costs. Times count from a fixed moment.
class CopyPace {
  public:
    using Time = std::chrono::microseconds;

    /// A copy was made.
    void made(Time begin, Time end) {
        next_ = begin + std::max<Time>(leastPause, share * (end - begin));
    }
    /// None could be made: a full disk is not tried all the time.
    void failed(Time now) { next_ = now + pauseAfterFailure; }
    /// How long it is until another one may be made; nothing where it may be now.
    [[nodiscard]] Time wait(Time now) const { return std::max(next_ - now, Time::zero()); }

  private:
    static constexpr int share = 30;
    static constexpr std::chrono::milliseconds leastPause{100};
    static constexpr std::chrono::seconds pauseAfterFailure{10};

    Time next_ = Time::min() / 2;
};

} // namespace korvane
