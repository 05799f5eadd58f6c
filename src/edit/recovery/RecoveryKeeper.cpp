#include "edit/recovery/RecoveryKeeper.h"

#include <exception>
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
    // When::Now may be the last chance: check that the copy is still on the disk
    if (copied_ == state && (when == When::Due || (place_ && place_->holdsCopy()))) {
        return {};
    }
    const CopyPace::Time begin = clock_();
    const CopyPace::Time wait = pace_.wait(begin);
    if (when == When::Due && wait > CopyPace::Time::zero()) {
        return {false, wait};
    }
    if (!tryWrite(document)) {
        const CopyPace::Time now = clock_();
        pace_.failed(now);
        return {true, pace_.wait(now)};
    }
    pace_.made(begin, clock_());
    copied_ = state;
    return {};
}

bool RecoveryKeeper::write(const ModelDocument& document) {
    if (!place_ || !place_->isClaimed()) {
        place_ = folder_.claimNewPlace();
    }
    return place_ && place_->write(document);
}

bool RecoveryKeeper::tryWrite(const ModelDocument& document) {
    try {
        return write(document);
    } catch (const std::exception&) {
        return false; // out of memory: do not disturb the user's work
    }
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
        try {
            folder_.makeRoom(); // this adds a copy, and the limits always hold
        } catch (const std::exception&) {
            // out of memory: the next leave() makes room
        }
    }
}

void RecoveryKeeper::adopt(ClaimedCopy place) {
    place_ = std::move(place);
    copied_.reset(); // rewrite it, so that its age is that of the work
}

} // namespace korvane
