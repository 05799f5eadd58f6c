#pragma once

#include "edit/history/EditAction.h"
#include "model/document/ModelDocument.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

/// A count as an entry keeps it.
inline std::int32_t count32(std::size_t size) {
    return static_cast<std::int32_t>(size);
}

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
    /// The numbers behind the frame's path.
    [[nodiscard]] std::span<const std::int32_t> numbers() const {
        return std::span(action.path).subspan(action.index + 1);
    }
};

/// How the entries of one kind are carried out.
struct EditKindRow {
    EditKind kind;
    const char* name; ///< to the user, as a command
    bool ofFrame;     ///< the entry's path leads to a frame, which becomes the selection
    RefreshFlags refresh;
    void (*run)(EditStep&);
};

/// The row of a kind, or null for what is none.
const EditKindRow* editKindRow(EditKind kind);

// The steps of the structural kinds; the others only write a value.
void stepAppendSlot(EditStep& step);
void stepRemoveSlot(EditStep& step);
void stepAddMeshMaterial(EditStep& step);
void stepAddMaterial(EditStep& step);
void stepDeleteMaterial(EditStep& step);
void stepAddFrame(EditStep& step);
void stepDeleteFrame(EditStep& step);
void stepPasteMaterials(EditStep& step);
void stepPasteMeshMaterials(EditStep& step);
void stepPasteFrame(EditStep& step);

} // namespace korvane
