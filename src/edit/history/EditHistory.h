#pragma once

#include "edit/history/EditAction.h"
#include "model/document/ModelDocument.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

/// The result of an undo or a redo.
struct StepOutcome {
    RefreshFlags refresh; ///< of all entries of the step
    /// The frame to select, if the last entry of the step was about a frame.
    std::optional<FramePath> frame;
};

/// The undo history of one document: linear and unlimited. The operations that record
/// (MaterialEdits.h, SlotEdits.h, StructureEdits.h, PasteEdits.h) change the model and keep what
/// undo needs; the same step then serves undo and redo. Entries refer to frames by path, so every
/// change that a user makes to the structure must be recorded here.
///
/// Each operation succeeds or, if memory runs out, leaves model and history as they were. Selecting
/// is left to the caller.
class EditHistory {
  public:
    /// `textures` loads the image of a texture whenever its name changes.
    explicit EditHistory(TextureSource textures = {}) : textures_(std::move(textures)) {}

    /// False while a transaction is open.
    [[nodiscard]] bool canUndo() const { return !open_ && position_ >= 0; }
    [[nodiscard]] bool canRedo() const { return !open_ && position_ < lastEntry(); }
    /// The name of the step that undo or redo would run, as in "delete frame"; empty without one.
    /// The first entry of a step names it.
    [[nodiscard]] std::string_view undoName() const;
    [[nodiscard]] std::string_view redoName() const;
    /// Undoes the last step or redoes the next one, if any. If one of several entries fails and the
    /// others cannot be rolled back either, the model stays in between; undo and redo continue from
    /// there.
    StepOutcome undo(ModelDocument& document);
    StepOutcome redo(ModelDocument& document);
    /// Undoes the last step for good: neither it nor later steps can be redone.
    void revoke(ModelDocument& document);

    [[nodiscard]] std::span<const EditAction> entries() const { return entries_; }
    /// The last applied entry, or -1 if there is nothing to undo.
    [[nodiscard]] std::int32_t position() const { return position_; }

    /// For record operations: applies an entry, drops the entries to redo and marks the document as
    /// modified. `textures` replaces the history's own.
    void record(ModelDocument& document, EditAction action) {
        record(document, std::move(action), textures_);
    }
    void record(ModelDocument& document, EditAction action, const TextureSource& textures);

  private:
    friend class EditTransaction;

    [[nodiscard]] EditAction& entry(std::int32_t number) {
        return entries_[static_cast<std::size_t>(number)];
    }
    [[nodiscard]] std::int32_t lastEntry() const {
        return static_cast<std::int32_t>(entries_.size()) - 1;
    }
    [[nodiscard]] std::string_view nameOf(std::int32_t number) const;
    /// The first entry of the step that the entry belongs to.
    [[nodiscard]] std::int32_t firstOfStep(std::int32_t number) const;
    /// Steps through the entries up to a new position, all or none.
    StepOutcome goTo(ModelDocument& document, std::int32_t position);
    /// Steps through one entry.
    RefreshFlags goOne(ModelDocument& document, bool forward);
    /// After a failure, goes back to a position as far as possible.
    void returnTo(ModelDocument& document, std::int32_t position) noexcept;
    /// Drops the entries in [first, end).
    void drop(std::int32_t first, std::int32_t end) noexcept;

    TextureSource textures_;
    std::vector<EditAction> entries_;
    std::int32_t position_ = -1;
    /// The position where the open transaction started. Until it ends, the entries that could be
    /// redone there follow its own.
    std::optional<std::int32_t> open_;
};

/// Makes several records one step of undo and redo:
///
///     EditTransaction transaction(history, document);
///     setTextureFile(history, document, ...);
///     setTextureOn(history, document, ...);
///     transaction.commit();
///
/// Without the commit, for example after an exception, the destructor undoes these records, and the
/// former redo entries come back. What it cannot undo for lack of memory stays as a step.
/// Transactions do not nest.
class EditTransaction {
  public:
    EditTransaction(EditHistory& history, ModelDocument& document);
    ~EditTransaction();
    EditTransaction(const EditTransaction&) = delete;
    EditTransaction& operator=(const EditTransaction&) = delete;

    /// Makes the records one step, or none if there are none.
    void commit() noexcept;

  private:
    EditHistory& history_;
    ModelDocument& document_;
    std::int32_t start_;
    bool modified_;
    std::uint64_t revision_;
    bool committed_ = false;
};

} // namespace korvane
