#include "edit/history/EditHistory.h"

#include "edit/history/EditSteps.h"
#include "model/records/ListRoom.h"

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
    carryOut(document, action, true, textures);
    dropRedo();
    entries_.push_back(std::move(action));
    ++position_;
}

void EditHistory::dropRedo() noexcept {
    entries_.erase(entries_.begin() + position_ + 1, entries_.end());
}

std::string_view EditHistory::undoName() const {
    return canUndo() ? nameOf(position_) : std::string_view();
}

std::string_view EditHistory::redoName() const {
    return canRedo() ? nameOf(position_ + 1) : std::string_view();
}

std::string_view EditHistory::nameOf(std::int32_t number) const {
    const EditKindRow* row = editKindRow(entries_[static_cast<std::size_t>(number)].kind);
    return row != nullptr ? row->name : std::string_view();
}

StepOutcome EditHistory::undo(ModelDocument& document) {
    return canUndo() ? step(document, position_, false) : StepOutcome();
}

void EditHistory::revoke(ModelDocument& document) {
    undo(document);
    dropRedo();
}

StepOutcome EditHistory::redo(ModelDocument& document) {
    return canRedo() ? step(document, position_ + 1, true) : StepOutcome();
}

StepOutcome EditHistory::step(ModelDocument& document, std::int32_t number, bool forward) {
    EditAction& action = entry(number);
    StepOutcome outcome;
    // ahead of the change, because copying the path may fail
    if (const EditKindRow* row = editKindRow(action.kind); row != nullptr && row->ofFrame) {
        outcome.frame = FramePath(frameNumbers(action));
    }
    outcome.refresh = carryOut(document, action, forward, textures_);
    position_ = forward ? number : number - 1;
    if (frameOf(document, action) == nullptr) {
        outcome.frame.reset();
    }
    return outcome;
}

} // namespace korvane
