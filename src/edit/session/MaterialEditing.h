#pragma once

#include "edit/history/EditHistory.h"
#include "edit/materials/FacePart.h"
#include "edit/materials/PendingOpacity.h"
#include "edit/materials/PendingShininess.h"
#include "edit/materials/TexCoordDrag.h"
#include "edit/session/Changes.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

/// The owner of the edited materials.
struct MaterialSubject {
    std::optional<FramePath> frame; ///< its mesh has the material slots; none means the table
    std::int32_t slot = 0;          ///< the first current slot; for the table, a material's number
};

/// A material that a dialog is about. The answer is dropped if anything else has changed the model
/// or the current material meanwhile.
struct MaterialQuestion {
    std::size_t material = 0;
    std::uint64_t revision = 0;
};

/// The result of typing a shininess.
struct ShininessOutcome {
    bool refused = false; ///< not a number of at least 0: the material keeps its value
    Changes changes;
};

/// The editable colours of a material.
enum class MaterialColor { Ambient, Diffuse, Specular };

/// Edits the materials of a frame's mesh or of the table; the values edited are those of the
/// material in the current slot. Changes go into the model at once; the history records a run of
/// changes to one value as one entry when the user does something else. So every operation but that
/// run's own first cancels a running drag and records what is pending. Before asking a dialog, a
/// form must call commit().
class MaterialEditing {
  public:
    /// Model and history must outlive this object.
    MaterialEditing(ModelDocument& model, EditHistory& history, MaterialSubject subject);
    // the pending values belong to one object
    MaterialEditing(const MaterialEditing&) = delete;
    MaterialEditing& operator=(const MaterialEditing&) = delete;

    // What to show.

    [[nodiscard]] const ModelDocument& model() const { return model_; }
    [[nodiscard]] bool ofMesh() const { return subject_.frame.has_value(); }
    /// The mesh whose slots are edited; the table poses as the slots of a mesh of its own.
    [[nodiscard]] const MeshRecord& mesh() const;
    [[nodiscard]] const std::vector<std::int32_t>& slots() const { return mesh().MaterialSlotList; }
    [[nodiscard]] std::int32_t currentSlot() const { return mesh().CurrentSlot; }
    /// The number of the material in the current slot, if valid.
    [[nodiscard]] std::optional<std::size_t> currentMaterial() const;
    /// That material, or a default one.
    [[nodiscard]] const MaterialRecord& material() const;
    /// The text of the shininess field.
    [[nodiscard]] const std::string& shininess() const { return shininess_; }
    /// For each material of the table, whether a slot of the mesh leads to it.
    [[nodiscard]] std::vector<bool> usedMaterials() const;
    /// The faces of the mesh that show the current material, in order.
    [[nodiscard]] std::vector<std::size_t> facesOfCurrent() const;
    /// The number of the material that a face shows, if its slot is valid.
    [[nodiscard]] std::optional<std::size_t> materialOf(std::size_t face) const;
    /// The same in words; empty without a face.
    [[nodiscard]] QString faceText(const std::optional<FacePart>& selected) const;
    /// What the texture view shows if there is a picture, in one sentence for people who cannot
    /// see it.
    [[nodiscard]] QString textureSentence(const std::optional<FacePart>& selected) const;
    /// The material that all slots lead to, if it is one: the mesh must keep it.
    [[nodiscard]] std::optional<std::int32_t> onlyMaterial() const;

    // What the user does.

    /// Cancels a running drag and records what is pending.
    Changes commit();
    /// A question about the current material, if any.
    [[nodiscard]] std::optional<MaterialQuestion> ask() const;
    Changes setColor(const MaterialQuestion& question, MaterialColor color, const ColorRGB& value);
    /// `image` is the image of that name if already loaded, else null.
    Changes setTexture(const MaterialQuestion& question, std::string name,
                       std::shared_ptr<const TextureImage> image);
    Changes setTextureOn(bool on);
    /// The user moves the opacity bar, to a position from 0 to 100, or types a shininess. Both
    /// commit what else is pending but stay pending themselves.
    Changes moveOpacity(std::int32_t position);
    ShininessOutcome typeShininess(const std::string& text);
    /// Makes the slot current, and assigns it to the selected face, if any.
    Changes chooseSlot(std::int32_t slot, std::optional<FacePart> selected);
    /// Adds and removes slots so that the mesh uses these materials.
    Changes useMaterials(const std::vector<bool>& wanted);

    // The mouse in the texture view. A drag changes the model and ends as one entry.

    Changes beginDrag(const DragInput& input, const TexCoordView& view,
                      std::optional<FacePart> selected);
    Changes moveDrag(const DragInput& input, const TexCoordView& view);
    Changes endDrag(const DragInput& input, const TexCoordView& view);
    /// Cancels a running drag.
    Changes cancelDrag();
    [[nodiscard]] bool dragging() const { return drag_.active(); }
    /// Whether a running drag has changed texture coordinates.
    [[nodiscard]] bool dragMoves() const;

    /// Records what is pending at the end of the editing. Returns what is then out of date.
    Changes end();

  private:
    [[nodiscard]] MeshRecord& editedMesh();
    [[nodiscard]] const FrameRecord* frame() const;
    /// Whether a dialog's answer may still change the current material.
    [[nodiscard]] bool stillCurrent(const MaterialQuestion& question) const;
    void commitOpacity();
    void commitShininess();
    /// Makes the current material's values the old values of pending entries.
    void startValues();
    void removeSlots(std::size_t material);
    /// Call after changing the model without the history.
    Changes changedLive();
    Changes texCoordsMoved();

    ModelDocument& model_;
    EditHistory& history_;
    MaterialSubject subject_;
    /// Poses as a mesh whose slots are the table. Not part of the model, it has no path, so the
    /// history cannot record its slots.
    MeshRecord table_;
    PendingOpacity pendingOpacity_;
    PendingShininess pendingShininess_;
    std::string shininess_;
    TexCoordDrag drag_;
    bool slotsChanged_ = false;
};

} // namespace korvane
