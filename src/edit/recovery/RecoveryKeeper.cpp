#include "edit/recovery/RecoveryKeeper.h"

#include <utility>

namespace korvane {

KeeperClock steadyClock() {
    return [] {
        return std::chrono::duration_cast<CopyPace::Time>(
            std::chrono::steady_clock::now().time_since_epoch());
    };
}

RecoveryKeeper::RecoveryKeeper(RecoveryFolder folder, KeeperClock clock)
    : folder_(std::move(folder)), clock_(std::move(clock)) {}

KeepOutcome RecoveryKeeper::keep(const ModelDocument& document, When when) {
    const State state = stateOf(document);
    if (copied_ == state) {
        return {};
    }
    const CopyPace::Time begin = clock_();
    const CopyPace::Time wait = pace_.wait(begin);
    if (when == When::Due && wait > CopyPace::Time::zero()) {
        return {false, wait};
    }
    if (!write(document)) {
        const CopyPace::Time now = clock_();
        pace_.failed(now);
        return {true, pace_.wait(now)};
    }
    pace_.made(begin, clock_());
    copied_ = state;
    return {};
}

bool RecoveryKeeper::write(const ModelDocument& document) {
    if (!place_ || !place_->isThere()) {
        place_ = folder_.newPlace();
    }
    return place_ && place_->write(document);
}

void RecoveryKeeper::drop() {
    if (place_) {
        place_->remove();
        place_.reset();
    }
    copied_.reset();
}

void RecoveryKeeper::leave() {
    copied_.reset();
    if (place_) {
        place_.reset();
        (void)folder_.claimLeft(); // it is one more: the limits hold at any time
    }
}

void RecoveryKeeper::adopt(ClaimedCopy place, const ModelDocument& document) {
    place_ = std::move(place);
    copied_ = stateOf(document);
}

} // namespace korvane
