#pragma once

#include "edit/history/EditHistory.h"
#include "edit/materials/FaceTreeModel.h"
#include "edit/materials/PendingOpacity.h"
#include "edit/materials/PendingShininess.h"
#include "edit/materials/TexCoordDrag.h"
#include "edit/materials/TexCoordView.h"
#include "model/document/ModelDocument.h"
#include "render/picture/Bitmap.h"

#include <QDialog>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace korvane {

class DragFilter;
class ColorSwatch;
class ElidedLabel;
class TOKBottomDlg;

namespace Ui {
class TMaterial;
}

/// What the material editor works on. Document and history must outlive the call.
struct MaterialSubject {
    ModelDocument* document = nullptr;
    EditHistory* history = nullptr;
    std::optional<FramePath> frame; ///< whose mesh has the material slots; none means the table
    std::int32_t slot = 0;          ///< the slot to begin with; of the table a material's number
};

/// The material editor: the materials of a frame's mesh, which faces use them, their values and
/// textures, and the texture coordinates of the faces. Changes go into the model at once and into
/// its history; a run of steps of one value as one entry when something else is done.
class TMaterial : public QDialog {
    Q_OBJECT
  public:
    explicit TMaterial(QWidget* parent);
    ~TMaterial() override;

    /// The dialog that lets the user choose texture files; it must outlive every edit().
    void setTextureDialog(TOKBottomDlg& dialog) { textureDialog_ = &dialog; }

    /// Shows the editor until the user closes it.
    void edit(const MaterialSubject& subject);
    /// Whether the user gave the mesh other materials since the editor was shown last.
    [[nodiscard]] bool slotsChanged() const { return slotsChanged_; }

  Q_SIGNALS:
    /// The model has changed in what the views show.
    void edited();

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowMaterial();
    void MaterialRefresh();
    void AmbientChange();
    void DiffuseChange();
    void SpecularChange();
    void EmissiveChange();
    void OpacityChange();
    void ShininessChange();
    void ComboBoxChange();
    void CheckListBoxClicked();
    void TextureStatusChange();
    void mopen1execute();
    void Ok_ButtonClick();
    void OnHide();

    void FormZoomIn();
    void FormZoomOut();
    void scrollcheck();
    void HorizontalChange();
    void VerticalChange();
    void DrawTexTri();
    void FormMouseDown(const DragInput& input);
    void FormMouseMove(const DragInput& input);
    void FormMouseUp(const DragInput& input);
    void MaterialPTMove(const DragInput& input);
    void SelectedTriChange();
    void TriInactiveChange();
    void VertChange();
    void VertChange1();
    void BMPRefresh();
    void DeleteBMP();

    void connectControls();
    void connectTextureControls();
    void setUpLook();
    void commitPendingOpacity();
    void commitPendingShininess();
    /// What every handler does before it changes anything else: ends a running drag without a
    /// trace, and records what is pending.
    void commitPending();
    void fillSlots();
    void fillMaterials();
    void lockLastMaterial();
    void enableControls();
    void showValues();
    void showTexture();
    void showTextureName();
    /// Shows the picture, or why there is none, and the scroll bars that it needs.
    void showPicture();
    void changeColor(ColorSwatch& swatch,
                     void (EditHistory::*record)(ModelDocument&, std::size_t, const ColorRGB&));
    /// Which materials of the document some slot of the mesh leads to.
    [[nodiscard]] std::vector<bool> usedMaterials() const;
    void appendSlot(std::size_t material);
    void removeSlots(std::size_t material);
    void refuseShininess();
    void zoomChanged();
    void offsetChanged();
    void texCoordsChanged();
    /// Ends a running drag without a trace; whether there was one.
    bool cancelDrag();
    /// The frame that is edited, looked up anew; a frame that is gone is as one without materials.
    [[nodiscard]] FrameRecord& frame();
    [[nodiscard]] const FrameRecord& frame() const;
    [[nodiscard]] MeshRecord& mesh() { return frame().Mesh; }
    [[nodiscard]] const MeshRecord& mesh() const { return frame().Mesh; }
    /// Whether a dialog that was shown at this revision for the current material may still change
    /// that.
    [[nodiscard]] bool stillCurrent(std::size_t material, std::uint64_t revision) const;
    /// The document was changed past its history.
    void documentChanged();
    /// The number of the material in the current slot, if that leads to one.
    [[nodiscard]] std::optional<std::size_t> currentMaterial() const;
    /// The face or vertex that the tree has selected.
    [[nodiscard]] std::optional<FacePart> selectedPart() const;

    std::unique_ptr<Ui::TMaterial> ui_;
    ElidedLabel* statusPanels_[2] = {};
    TOKBottomDlg* textureDialog_ = nullptr;
    FaceTreeModel faces_;
    std::optional<MaterialSubject> subject_; ///< while the editor is shown
    /// The table is edited as the slots of a frame that is no part of the model. As that has no
    /// path, nothing about it can be recorded.
    FrameRecord table_;
    PendingOpacity pendingOpacity_;
    PendingShininess pendingShininess_;
    TexCoordView view_;
    TexCoordDrag drag_;
    TexCoordColors colors_;
    Bitmap picture_;
    std::shared_ptr<const TextureImage> texture_; ///< the image that the view shows
    bool showNeeded_ = false;
    bool slotsChanged_ = false;
    bool filling_ = false;              ///< controls are set to show the model, not by the user
    std::unique_ptr<DragFilter> mouse_; ///< of the texture view; goes first: it calls back
};

} // namespace korvane
