#pragma once

#include "edit/history/EditNumbers.h"
#include "model/document/ModelDocument.h"

#include <memory>
#include <span>
#include <variant>

namespace korvane {

/// One entry being applied to the model or reverted.
struct EditStep {
    ModelDocument& document;
    EditAction& action;
    const TextureSource& textures;
    bool forward;                 ///< record or redo; else undo
    FrameRecord* frame = nullptr; ///< for frame kinds alone; never null in their steps

    /// The value that this direction writes, or null if the entry holds another type.
    template <class Value>
    [[nodiscard]] const Value* value() const {
        return std::get_if<Value>(forward ? &action.after : &action.before);
    }
    /// The entry's material, or null.
    [[nodiscard]] MaterialRecord* material() const {
        return action.index < document.Materials.size() ? &document.Materials[action.index]
                                                        : nullptr;
    }
    /// The numbers after the frame's path, as a struct.
    template <class Named>
    [[nodiscard]] Named numbers() const {
        return namedNumbers<Named>(kindNumbers(action));
    }
};

/// The parts that an entry keeps while they are not in the model, or null.
inline RemovedParts* keptParts(EditData& data) {
    auto* parts = std::get_if<std::unique_ptr<RemovedParts>>(&data);
    return parts != nullptr ? parts->get() : nullptr;
}

/// The properties of one kind of entry.
struct EditKindRow {
    EditKind kind;
    const char* name; ///< for the user, as a command
    bool ofFrame;     ///< the entry's path leads to a frame, which becomes the selection
    RefreshFlags refresh;
    /// Runs the step in its direction. If it throws, model and entry are unchanged: all that can
    /// fail comes first.
    void (*run)(EditStep&);
};

/// The row of a kind, or null for an unknown one.
const EditKindRow* editKindRow(EditKind kind);

// The rows of all kinds, by subject; each subject has a file with its steps and record operations.
std::span<const EditKindRow> materialKinds();
std::span<const EditKindRow> slotKinds();
std::span<const EditKindRow> structureKinds();
std::span<const EditKindRow> pasteKinds();

namespace refresh {
inline constexpr RefreshFlags materials = {true, false, false};
inline constexpr RefreshFlags geometry = {true, true, false};
inline constexpr RefreshFlags tree = {false, false, true};
inline constexpr RefreshFlags materialsAndTree = {true, false, true};
inline constexpr RefreshFlags everything = {true, true, true};
} // namespace refresh

} // namespace korvane
