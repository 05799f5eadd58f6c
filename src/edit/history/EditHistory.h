#pragma once

#include "edit/history/EditAction.h"
#include "model/document/ModelDocument.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

/// The undo history of one document, without limit and in one line. Each record operation makes its
/// change to the model and keeps what is needed to take it back; the same step then serves undo and
/// redo. Entries refer to frames by path: all changes that a user can make to the structure have to
/// be recorded here. What leads nowhere in the model is left alone.
class EditHistory {
  public:
    /// `textures` loads the image of a texture anew whenever its name changes.
    explicit EditHistory(TextureSource textures = {}) : textures_(std::move(textures)) {}

    [[nodiscard]] bool canUndo() const { return position_ >= 0; }
    [[nodiscard]] bool canRedo() const { return position_ < lastEntry(); }
    /// What undo takes back and redo makes again, as in "delete frame"; empty where there is
    /// nothing.
    [[nodiscard]] std::string_view undoName() const;
    [[nodiscard]] std::string_view redoName() const;
    /// Takes back the last entry, or makes the next one again; nothing where there is none. An
    /// entry of a frame kind makes its frame the selection.
    RefreshFlags undo(ModelDocument& document);
    RefreshFlags redo(ModelDocument& document);

    [[nodiscard]] std::span<const EditAction> entries() const { return entries_; }
    /// The last entry that is applied; -1 when there is nothing to undo.
    [[nodiscard]] std::int32_t position() const { return position_; }

    // Each record operation drops what could be redone, makes the change and marks the document as
    // modified. Materials are numbers in the table, slots and faces numbers in the frame's mesh.

    /// `image` is that of the name where it is loaded already, else null.
    void textureFile(ModelDocument& document, std::size_t material, std::string name,
                     std::shared_ptr<const TextureImage> image = nullptr);
    void ambient(ModelDocument& document, std::size_t material, const ColorRGB& color);
    void faceColor(ModelDocument& document, std::size_t material, const ColorRGB& color);
    void specular(ModelDocument& document, std::size_t material, const ColorRGB& color);
    void emissive(ModelDocument& document, std::size_t material, const ColorRGB& color);
    /// The model already holds `after`, as it followed the user's hand.
    void opacity(ModelDocument& document, std::size_t material, float before, float after);
    void power(ModelDocument& document, std::size_t material, float before, float after);
    void textureOn(ModelDocument& document, std::size_t material, bool on);

    /// Texture coordinates that a drag has moved: their numbers in the mesh, and where they were
    /// and are. The three lists are of one length.
    void texCoords(ModelDocument& document, const FramePath& frame,
                   std::span<const std::int32_t> numbers, std::vector<Vec2> before,
                   std::vector<Vec2> after);
    void faceSlot(ModelDocument& document, const FramePath& frame, std::int32_t face,
                  std::int32_t slot);
    void appendSlot(ModelDocument& document, const FramePath& frame, std::int32_t material);
    /// Faces of the slot and of those above it move one down; those of slot 0 deliberately stay
    /// there.
    void removeSlot(ModelDocument& document, const FramePath& frame, std::int32_t slot);
    /// A new material at the end of the table, with a slot of the frame's mesh for it.
    void addMeshMaterial(ModelDocument& document, const FramePath& frame);
    void addMaterial(ModelDocument& document);
    /// Every mesh loses the slots of the material.
    void deleteMaterial(ModelDocument& document, std::size_t material);

    /// A frame that a drag has moved or turned: its matrix from before and now.
    void moveFrame(ModelDocument& document, const FramePath& frame, const Matrix4& before,
                   const Matrix4& after);
    void renameFrame(ModelDocument& document, const FramePath& frame, std::string name);
    /// A new frame as the last child.
    void addFrame(ModelDocument& document, const FramePath& parent, std::string name);
    /// The parent becomes the selection. The root cannot be deleted.
    void deleteFrame(ModelDocument& document, const FramePath& frame);
    /// The flags from before the dialog, which has written the new ones into the frame.
    void frameOptions(ModelDocument& document, const FramePath& frame, const FrameFlags& before);

    /// Materials at the end of the table.
    void pasteMaterials(ModelDocument& document, std::vector<MaterialRecord> materials);
    /// The same, each with a slot of the frame's mesh.
    void pasteMeshMaterials(ModelDocument& document, const FramePath& frame,
                            std::vector<MaterialRecord> materials);
    /// A frame as the last child, with materials at the end of the table that its slots refer to.
    void pasteFrame(ModelDocument& document, const FramePath& parent, FrameRecord frame,
                    std::vector<MaterialRecord> materials);

  private:
    void record(ModelDocument& document, EditAction action) {
        record(document, std::move(action), textures_);
    }
    void record(ModelDocument& document, EditAction action, const TextureSource& textures);
    /// Records a value of a material or of the action's frame, if there is one.
    template <class Get, class Value>
    void materialValue(ModelDocument& document, EditKind kind, std::size_t material, Get before,
                       Value after);
    template <class Value>
    void frameValue(ModelDocument& document, EditAction action, Value before, Value after);
    [[nodiscard]] std::string_view nameOf(std::int32_t entry) const;
    static RefreshFlags step(ModelDocument& document, EditAction& action, bool forward,
                             const TextureSource& textures);
    static void selectFrameOf(ModelDocument& document, const EditAction& action);
    [[nodiscard]] std::int32_t lastEntry() const {
        return static_cast<std::int32_t>(entries_.size()) - 1;
    }

    TextureSource textures_;
    std::vector<EditAction> entries_;
    std::int32_t position_ = -1;
};

} // namespace korvane
