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
    // at the last moment it counts what is on the disk, which somebody may have cleared
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
    if (!place_ || !place_->isThere()) {
        place_ = folder_.newPlace();
    }
    return place_ && place_->write(document);
}

bool RecoveryKeeper::tryWrite(const ModelDocument& document) {
    try {
        return write(document);
    } catch (const std::exception&) {
        return false; // memory ran out; what the user does comes first
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
            folder_.makeRoom(); // it is one more: the limits hold at any time
        } catch (const std::exception&) {
            // memory ran out: the next one makes room
        }
    }
}

void RecoveryKeeper::adopt(ClaimedCopy place) {
    place_ = std::move(place);
    copied_.reset(); // written anew it is as young as the work on it
}

} // namespace korvane
