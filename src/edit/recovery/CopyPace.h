#pragma once

#include <algorithm>
#include <chrono>

namespace korvane {

/// Limits how often copies of a model are made, so that they take at most a thirtieth of the time.
/// Times count from a fixed moment.
class CopyPace {
  public:
    using Time = std::chrono::microseconds;

    /// Call after making a copy.
    void made(Time begin, Time end) {
        next_ = begin + std::max<Time>(leastPause, share * (end - begin));
    }
    /// Call after failing to make one: a full disk is not retried all the time.
    void failed(Time now) { next_ = now + pauseAfterFailure; }
    /// The time until another copy may be made; zero if it may be made now.
    [[nodiscard]] Time wait(Time now) const { return std::max(next_ - now, Time::zero()); }

  private:
    static constexpr int share = 30;
    static constexpr std::chrono::milliseconds leastPause{100};
    static constexpr std::chrono::seconds pauseAfterFailure{10};

    Time next_ = Time::min() / 2;
};

} // namespace korvane
