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
    RefreshFlags refresh;
    std::optional<FramePath> frame; ///< the frame to select, if the step was about a frame
};

/// The undo history of one document: linear and unlimited. The operations that record
/// (MaterialEdits.h, SlotEdits.h, StructureEdits.h, PasteEdits.h) change the model and keep what
/// undo needs; each entry is one step, for undo and redo alike. Entries refer to frames by path, so
/// every change that a user makes to the structure must be recorded here.
///
/// Each operation, undo and redo included, succeeds or, if memory runs out, leaves model and
/// history as they were. Selecting is left to the caller.
class EditHistory {
  public:
    /// `textures` loads the image of a texture whenever its name changes.
    explicit EditHistory(TextureSource textures = {}) : textures_(std::move(textures)) {}

    [[nodiscard]] bool canUndo() const { return position_ >= 0; }
    [[nodiscard]] bool canRedo() const { return position_ < lastEntry(); }
    /// The name of the step that undo or redo would run, as in "delete frame"; empty without one.
    [[nodiscard]] std::string_view undoName() const;
    [[nodiscard]] std::string_view redoName() const;
    /// Undoes the last step or redoes the next one, if any.
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
    [[nodiscard]] EditAction& entry(std::int32_t number) {
        return entries_[static_cast<std::size_t>(number)];
    }
    [[nodiscard]] std::int32_t lastEntry() const {
        return static_cast<std::int32_t>(entries_.size()) - 1;
    }
    [[nodiscard]] std::string_view nameOf(std::int32_t number) const;
    /// Steps through the entry with this number.
    StepOutcome step(ModelDocument& document, std::int32_t number, bool forward);
    /// Drops the entries that could be redone.
    void dropRedo() noexcept;

    TextureSource textures_;
    std::vector<EditAction> entries_;
    std::int32_t position_ = -1;
};

} // namespace korvane
