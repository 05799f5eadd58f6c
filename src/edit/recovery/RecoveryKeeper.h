#pragma once

#include "edit/recovery/CopyPace.h"
#include "edit/recovery/RecoveryFolder.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace korvane {

/// What became of keeping a copy.
struct KeepOutcome {
    bool failed = false; ///< there should be a copy, but none can be made
    std::optional<CopyPace::Time>
        wait; ///< how long it is until the next one is due, if one will be
};

/// Tells the time since a fixed moment.
using KeeperClock = std::function<CopyPace::Time()>;
KeeperClock steadyClock();

/// Keeps the recovery copy of one model current. When it goes away, the copy stays.
class RecoveryKeeper {
  public:
    explicit RecoveryKeeper(RecoveryFolder folder, KeeperClock clock = steadyClock());

    /// Whether a copy waits for its time or is made at once.
    enum class When { Due, Now };
    /// The model differs from what is in a file: makes a copy unless the last one is current.
    KeepOutcome keep(const ModelDocument& document, When when);
    /// There is nothing to be kept (any more): removes the copy.
    void drop();
    /// The model goes away: its copy stays for the next program.
    void leave();
    /// The model is what the copy holds, which is kept current from here on.
    void adopt(ClaimedCopy place);

  private:
    /// What tells all states of a model apart.
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
    /// The same, and false where memory runs out.
    bool tryWrite(const ModelDocument& document);

    RecoveryFolder folder_;
    KeeperClock clock_;
    CopyPace pace_;
    std::optional<ClaimedCopy> place_;
    std::optional<State> copied_;
};

} // namespace korvane
