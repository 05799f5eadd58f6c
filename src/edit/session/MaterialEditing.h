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

/// Whose materials are edited.
struct MaterialSubject {
    std::optional<FramePath> frame; ///< whose mesh has the material slots; none means the table
    std::int32_t slot = 0;          ///< the slot to begin with; of the table a material's number
};

/// A material that a dialog is about. What comes back from the dialog is dropped where anything
/// else has changed the model or the choice of the material meanwhile.
struct MaterialQuestion {
    std::size_t material = 0;
    std::uint64_t revision = 0;
};

/// What became of a shininess that the user typed.
struct ShininessOutcome {
    bool refused = false; ///< no number of at least 0: the material keeps what it has
    Changes changes;
};

/// The colours of a material that are edited.
enum class MaterialColor { Ambient, Diffuse, Specular };

/// The materials of a frame's mesh or of the table while the user edits them: one of them, in the
/// current slot, has its values edited. Changes go into the model at once and into its history; a
/// run of steps of one value as one entry when something else is done: other operations than its
/// own first end a running drag without a trace and record what is pending. Answers of dialogs come
/// after a commit() that the form makes before it asks.
class MaterialEditing {
  public:
    /// Model and history must outlive this object.
    MaterialEditing(ModelDocument& model, EditHistory& history, MaterialSubject subject);
    // the pending values belong to one object
    MaterialEditing(const MaterialEditing&) = delete;
    MaterialEditing& operator=(const MaterialEditing&) = delete;

    // What there is to show.

    [[nodiscard]] const ModelDocument& model() const { return model_; }
    [[nodiscard]] bool ofMesh() const { return subject_.frame.has_value(); }
    /// The mesh whose slots are edited; the table is edited as the slots of a mesh of its own.
    [[nodiscard]] const MeshRecord& mesh() const;
    [[nodiscard]] const std::vector<std::int32_t>& slots() const { return mesh().MaterialSlotList; }
    [[nodiscard]] std::int32_t currentSlot() const { return mesh().CurrentSlot; }
    /// The number of the material in the current slot, if that leads to one.
    [[nodiscard]] std::optional<std::size_t> currentMaterial() const;
    /// That material, or a new one.
    [[nodiscard]] const MaterialRecord& material() const;
    /// The text of the shininess, as shown or as the user has left it.
    [[nodiscard]] const std::string& shininess() const { return shininess_; }
    /// Which materials of the table some slot of the mesh leads to.
    [[nodiscard]] std::vector<bool> usedMaterials() const;
    /// The faces of the mesh that show the current material, in order.
    [[nodiscard]] std::vector<std::size_t> facesOfCurrent() const;
    /// The number of the material that a face shows, if its slot leads to one.
    [[nodiscard]] std::optional<std::size_t> materialOf(std::size_t face) const;
    /// The same in words; empty for no face.
    [[nodiscard]] QString faceText(const std::optional<FacePart>& selected) const;
    /// What the texture view shows, in one sentence for people who cannot see it.
    [[nodiscard]] QString textureSentence(const std::optional<FacePart>& selected) const;
    /// The one material that all slots lead to, which the mesh must keep.
    [[nodiscard]] std::optional<std::int32_t> onlyMaterial() const;

    // What the user does.

    /// Ends a running drag and records what is pending: the user goes on to something else.
    Changes commit();
    /// A question about the current material, if there is one.
    [[nodiscard]] std::optional<MaterialQuestion> ask() const;
    Changes setColor(const MaterialQuestion& question, MaterialColor color, const ColorRGB& value);
    /// `image` is that of the name where it is loaded already, else null.
    Changes setTexture(const MaterialQuestion& question, std::string name,
                       std::shared_ptr<const TextureImage> image);
    Changes setTextureOn(bool on);
    /// The user's hand moves the opacity bar, to a position from 0 to 100, or types a shininess.
    /// These two commit what else is pending, but are pending themselves.
    Changes moveOpacity(std::int32_t position);
    ShininessOutcome typeShininess(const std::string& text);
    /// The slot becomes the current one, and that of a face if one is selected.
    Changes chooseSlot(std::int32_t slot, std::optional<FacePart> selected);
    /// The mesh uses these materials from here on: slots come and go.
    Changes useMaterials(const std::vector<bool>& wanted);

    // The mouse in the texture view. A drag changes the model, and ends as one entry.

    Changes beginDrag(const DragInput& input, const TexCoordView& view,
                      std::optional<FacePart> selected);
    Changes moveDrag(const DragInput& input, const TexCoordView& view);
    Changes endDrag(const DragInput& input, const TexCoordView& view);
    /// Ends a running drag without a trace.
    Changes cancelDrag();
    [[nodiscard]] bool dragging() const { return drag_.active(); }
    /// Whether a running drag has texture coordinates elsewhere than they were.
    [[nodiscard]] bool dragMoves() const;

    /// Records what is pending, and tells what has to follow when the user has done.
    Changes end();

  private:
    [[nodiscard]] MeshRecord& editedMesh();
    [[nodiscard]] const FrameRecord* frame() const;
    /// Whether what a dialog brings back may still change the current material.
    [[nodiscard]] bool stillCurrent(const MaterialQuestion& question) const;
    void commitOpacity();
    void commitShininess();
    /// The values of the current material are those that pending entries start from.
    void startValues();
    void removeSlots(std::size_t material);
    /// The model was changed past its history.
    Changes changedLive();
    Changes texCoordsMoved();

    ModelDocument& model_;
    EditHistory& history_;
    MaterialSubject subject_;
    /// The table is edited as the slots of a mesh that is no part of the model. As that has no
    /// path, nothing about it can be recorded.
    MeshRecord table_;
    PendingOpacity pendingOpacity_;
    PendingShininess pendingShininess_;
    std::string shininess_;
    TexCoordDrag drag_;
    bool slotsChanged_ = false;
};

} // namespace korvane
