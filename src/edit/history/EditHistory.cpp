#include "edit/history/EditHistory.h"

#include "edit/history/EditSteps.h"
#include "model/records/ListRoom.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace korvane {

namespace {

static_assert(std::is_nothrow_move_constructible_v<EditAction> &&
              std::is_nothrow_move_assignable_v<EditAction>);

/// The frame of an entry of a frame kind; null if it is missing, and for other kinds.
FrameRecord* frameOf(ModelDocument& document, const EditAction& action) {
    const EditKindRow* row = editKindRow(action.kind);
    return row != nullptr && row->ofFrame ? frameAt(document.Root, frameNumbers(action)) : nullptr;
}

/// Applies or reverts an entry.
RefreshFlags carryOut(ModelDocument& document, EditAction& action, bool forward,
                      const TextureSource& textures) {
    const EditKindRow* row = editKindRow(action.kind);
    EditStep step = {document, action, textures, forward, frameOf(document, action)};
    const bool leadsSomewhere = row != nullptr && (!row->ofFrame || step.frame != nullptr);
    if (leadsSomewhere) {
        row->run(step);
    }
    document.Modified = true;
    ++document.Revision;
    return leadsSomewhere ? row->refresh : RefreshFlags();
}

} // namespace

const EditKindRow* editKindRow(EditKind kind) {
    for (const auto& kinds : {materialKinds(), slotKinds(), structureKinds(), pasteKinds()}) {
        for (const EditKindRow& row : kinds) {
            if (row.kind == kind) {
                return &row;
            }
        }
    }
    return nullptr;
}

void EditHistory::record(ModelDocument& document, EditAction action,
                         const TextureSource& textures) {
    // reserve first, so that no change can end up without its entry
    reserveMore(entries_, 1);
    action.joined = open_ && position_ > *open_;
    carryOut(document, action, true, textures);
    ++position_;
    entries_.insert(entries_.begin() + position_, std::move(action));
    if (!open_) {
        drop(position_ + 1, lastEntry() + 1);
    }
}

void EditHistory::drop(std::int32_t first, std::int32_t end) noexcept {
    entries_.erase(entries_.begin() + first, entries_.begin() + end);
}

std::string_view EditHistory::undoName() const {
    return canUndo() ? nameOf(firstOfStep(position_)) : std::string_view();
}

std::string_view EditHistory::redoName() const {
    return canRedo() ? nameOf(firstOfStep(position_ + 1)) : std::string_view();
}

std::string_view EditHistory::nameOf(std::int32_t number) const {
    const EditKindRow* row = editKindRow(entries_[static_cast<std::size_t>(number)].kind);
    return row != nullptr ? row->name : std::string_view();
}

std::int32_t EditHistory::firstOfStep(std::int32_t number) const {
    while (number > 0 && entries_[static_cast<std::size_t>(number)].joined) {
        --number;
    }
    return number;
}

StepOutcome EditHistory::undo(ModelDocument& document) {
    return canUndo() ? goTo(document, firstOfStep(position_) - 1) : StepOutcome();
}

void EditHistory::revoke(ModelDocument& document) {
    undo(document);
    drop(position_ + 1, lastEntry() + 1);
}

StepOutcome EditHistory::redo(ModelDocument& document) {
    if (!canRedo()) {
        return {};
    }
    std::int32_t last = position_ + 1;
    while (last < lastEntry() && entry(last + 1).joined) {
        ++last;
    }
    return goTo(document, last);
}

StepOutcome EditHistory::goTo(ModelDocument& document, std::int32_t position) {
    const std::int32_t start = position_;
    const bool forward = position > start;
    const bool modified = document.Modified;
    const std::uint64_t revision = document.Revision;
    const EditAction& last = entry(forward ? position : position + 1);
    StepOutcome outcome;
    if (const EditKindRow* row = editKindRow(last.kind); row != nullptr && row->ofFrame) {
        outcome.frame = FramePath(frameNumbers(last));
    }
    try {
        while (position_ != position) {
            outcome.refresh |= goOne(document, forward);
        }
    } catch (...) {
        returnTo(document, start);
        if (position_ == start) {
            document.Modified = modified;
            document.Revision = revision;
        }
        throw;
    }
    if (frameOf(document, last) == nullptr) {
        outcome.frame.reset();
    }
    return outcome;
}

RefreshFlags EditHistory::goOne(ModelDocument& document, bool forward) {
    const RefreshFlags refresh =
        carryOut(document, entry(forward ? position_ + 1 : position_), forward, textures_);
    position_ += forward ? 1 : -1;
    return refresh;
}

void EditHistory::returnTo(ModelDocument& document, std::int32_t position) noexcept {
    try {
        while (position_ != position) {
            goOne(document, position > position_);
        }
    } catch (...) { // NOLINT(bugprone-empty-catch): undo and redo still work from here
    }
}

EditTransaction::EditTransaction(EditHistory& history, ModelDocument& document)
    : history_(history), document_(document), start_(history.position_),
      modified_(document.Modified), revision_(document.Revision) {
    history_.open_ = start_;
}

EditTransaction::~EditTransaction() {
    if (committed_) {
        return;
    }
    const std::int32_t end = history_.position_ + 1;
    history_.returnTo(document_, start_);
    history_.open_.reset();
    if (history_.position_ == start_) {
        history_.drop(start_ + 1, end);
        document_.Modified = modified_;
        document_.Revision = revision_;
    } else {
        // the entries to redo only fit the start
        history_.drop(history_.position_ + 1, history_.lastEntry() + 1);
    }
}

void EditTransaction::commit() noexcept {
    committed_ = true;
    history_.open_.reset();
    if (history_.position_ != start_) {
        history_.drop(history_.position_ + 1, history_.lastEntry() + 1);
    }
}

} // namespace korvane
