#pragma once

#include "edit/recovery/CopyPace.h"
#include "edit/recovery/RecoveryFolder.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace korvane {

/// The result of keep().
struct KeepOutcome {
    bool failed = false; ///< a copy is needed, but none can be made
    std::optional<CopyPace::Time>
        wait; ///< the time until the next copy is due, if there will be one
};

/// Returns the time since a fixed moment.
using KeeperClock = std::function<CopyPace::Time()>;
KeeperClock steadyClock();

/// Keeps the recovery copy of one model current. The copy outlives the object.
class RecoveryKeeper {
  public:
    explicit RecoveryKeeper(RecoveryFolder folder, KeeperClock clock = steadyClock());

    /// Make a copy when it is due, or at once.
    enum class When { Due, Now };
    /// Call while the model differs from its file: makes a copy unless the last one is current.
    KeepOutcome keep(const ModelDocument& document, When when);
    /// Call when nothing needs to be kept: removes the copy.
    void drop();
    /// Call when the model goes away: leaves its copy for the next program.
    void leave();
    /// Call after loading the model from the copy: keeps that copy current from now on.
    void adopt(ClaimedCopy place);

  private:
    /// Identifies a state of the model.
    struct State {
        std::uint64_t revision = 0;
        std::uint64_t liveChanges = 0;
        QString name;

        bool operator==(const State&) const = default;
    };
    static State stateOf(const ModelDocument& document) {
        return {document.Revision, document.LiveChanges, document.FileName};
    }
    bool write(const ModelDocument& document);
    /// The same, but returns false on any exception.
    bool tryWrite(const ModelDocument& document);

    RecoveryFolder folder_;
    KeeperClock clock_;
    CopyPace pace_;
    std::optional<ClaimedCopy> place_;
    std::optional<State> copied_;
};

} // namespace korvane
