#pragma once

#include "edit/history/EditNumbers.h"
#include "model/document/ModelDocument.h"

#include <memory>
#include <span>
#include <variant>

namespace korvane {

/// One entry on its way into or out of the model.
struct EditStep {
    ModelDocument& document;
    EditAction& action;
    const TextureSource& textures;
    bool forward;                 ///< record or redo; else undo
    FrameRecord* frame = nullptr; ///< of the frame kinds, never null in their steps

    /// The value that this direction writes; nothing if the entry holds another type.
    template <class Value>
    [[nodiscard]] const Value* value() const {
        return std::get_if<Value>(forward ? &action.after : &action.before);
    }
    /// The material that the entry is about, or null.
    [[nodiscard]] MaterialRecord* material() const {
        return action.index < document.Materials.size() ? &document.Materials[action.index]
                                                        : nullptr;
    }
    /// The numbers behind the frame's path, by their names.
    template <class Named>
    [[nodiscard]] Named numbers() const {
        return namedNumbers<Named>(kindNumbers(action));
    }
};

/// What an entry keeps while it is out of the model; null if it keeps nothing.
inline RemovedParts* keptParts(EditData& data) {
    auto* parts = std::get_if<std::unique_ptr<RemovedParts>>(&data);
    return parts != nullptr ? parts->get() : nullptr;
}

/// How the entries of one kind are carried out.
struct EditKindRow {
    EditKind kind;
    const char* name; ///< to the user, as a command
    bool ofFrame;     ///< the entry's path leads to a frame, which becomes the selection
    RefreshFlags refresh;
    /// Goes in the step's direction. Where it throws, model and entry are as they were: what can
    /// fail comes first.
    void (*run)(EditStep&);
};

/// The row of a kind, or null for what is none.
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
