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

/// What an undo or a redo did.
struct StepOutcome {
    RefreshFlags refresh; ///< of all entries of the step
    /// The frame that is to be the selection, if the last entry gone through was about one.
    std::optional<FramePath> frame;
};

/// The undo history of one document, without limit and in one line. The operations that record
/// (MaterialEdits.h, SlotEdits.h, StructureEdits.h, PasteEdits.h) make their change to the model
/// and keep what is needed to take it back; the same step then serves undo and redo. Entries refer
/// to frames by path: all changes that a user can make to the structure have to be recorded here.
///
/// Each of these happens whole or, if memory runs out on the way, not at all: model and history are
/// then as they were. Selecting is left to the caller.
class EditHistory {
  public:
    /// `textures` loads the image of a texture anew whenever its name changes.
    explicit EditHistory(TextureSource textures = {}) : textures_(std::move(textures)) {}

    /// Never while a transaction is open.
    [[nodiscard]] bool canUndo() const { return !open_ && position_ >= 0; }
    [[nodiscard]] bool canRedo() const { return !open_ && position_ < lastEntry(); }
    /// What undo takes back and redo makes again, as in "delete frame"; empty where there is
    /// nothing. Several entries in one step go by the first.
    [[nodiscard]] std::string_view undoName() const;
    [[nodiscard]] std::string_view redoName() const;
    /// Takes back the last step, or makes the next one again; nothing where there is none. Where
    /// that fails within a step of several entries and they cannot be brought back either, the
    /// model stays between two of them, and undo and redo go on from there.
    StepOutcome undo(ModelDocument& document);
    StepOutcome redo(ModelDocument& document);
    /// Takes back the last step for good: neither it nor what came after it can be made again.
    void revoke(ModelDocument& document);

    [[nodiscard]] std::span<const EditAction> entries() const { return entries_; }
    /// The last entry that is applied; -1 when there is nothing to undo.
    [[nodiscard]] std::int32_t position() const { return position_; }

    /// For record operations: makes the change of an entry, drops what could be redone and marks
    /// the document as modified. `textures` takes the place of the history's own.
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
    /// The first entry of the step that an entry belongs to.
    [[nodiscard]] std::int32_t firstOfStep(std::int32_t number) const;
    /// Goes through the entries up to a new position, all or none.
    StepOutcome goTo(ModelDocument& document, std::int32_t position);
    /// Goes through one entry.
    RefreshFlags goOne(ModelDocument& document, bool forward);
    /// Goes back to a position that something failed on the way from, as far as that can be done.
    void returnTo(ModelDocument& document, std::int32_t position) noexcept;
    /// Drops the entries from one number up to another.
    void drop(std::int32_t first, std::int32_t end) noexcept;

    TextureSource textures_;
    std::vector<EditAction> entries_;
    std::int32_t position_ = -1;
    /// While a transaction is open, the position that it started from; the entries that it found to
    /// be redone then follow behind its own.
    std::optional<std::int32_t> open_;
};

/// Several records as one step of undo and redo:
///
///     EditTransaction transaction(history, document);
///     setTextureFile(history, document, ...);
///     setTextureOn(history, document, ...);
///     transaction.commit();
///
/// Without the commit, as when something throws on the way, all that was recorded since is taken
/// back, and what could be redone can be again. What cannot be taken back as memory runs out stays
/// as a step. Transactions do not nest.
class EditTransaction {
  public:
    EditTransaction(EditHistory& history, ModelDocument& document);
    ~EditTransaction();
    EditTransaction(const EditTransaction&) = delete;
    EditTransaction& operator=(const EditTransaction&) = delete;

    /// What was recorded becomes one step; no step if nothing was.
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
