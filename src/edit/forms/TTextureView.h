#pragma once

#include "edit/materials/FacePart.h"
#include "edit/materials/TexCoordView.h"
#include "edit/session/Changes.h"
#include "render/drags/DragInput.h"
#include "render/picture/Bitmap.h"

#include <QImage>
#include <QObject>

#include <memory>
#include <optional>

class QWidget;

namespace korvane {

class DragFilter;
class ElidedLabel;
class FaceTreeModel;
class MaterialEditing;

namespace Ui {
class TMaterial;
}

/// The texture view of the material editor: shows the texture of the current material with the
/// faces of the mesh over it, and lets the mouse move their texture coordinates. It uses the
/// editor's controls, which must outlive it.
class TTextureView : public QObject {
    Q_OBJECT
  public:
    /// `dialog` is the editor that the controls belong to, `faces` the model of its tree.
    TTextureView(Ui::TMaterial& controls, FaceTreeModel& faces, QWidget& dialog);
    ~TTextureView() override;

    /// Attaches the view to the materials, which must stay valid until close().
    void open(MaterialEditing& materials);
    void close();

    /// Lists all faces or those of the current material. Keeps the selection if it is listed.
    void showFaces();
    /// Shows another texture; call it when the current material or its texture has changed.
    void showTexture();
    /// Shows the picture, or why there is none, and the scroll bars if they are needed.
    void showPicture();
    /// Reverts a running drag of faces, or ends one that scrolls. Returns true if there was one.
    bool cancelDrag();
    /// Ends a running drag and records pending edits. Every handler calls it first.
    void commitPending();
    /// Returns the face or vertex selected in the tree.
    [[nodiscard]] std::optional<FacePart> selectedPart() const;

  Q_SIGNALS:
    /// The mouse has changed the model.
    void edited(const Changes& changes);

  private:
    void FormZoomIn();
    void FormZoomOut();
    void scrollcheck();
    void HorizontalChange();
    void VerticalChange();
    void DrawTexTri();
    void FormMouseDown(const DragInput& input);
    void FormMouseMove(const DragInput& input);
    void FormMouseUp(const DragInput& input);
    void wheelTurned(const DragInput& input, float notches);
    void MaterialPTMove(const DragInput& input);
    void SelectedTriChange();
    void TriInactiveChange();
    void VertChange();
    void VertChange1();
    void BMPRefresh();
    void DeleteBMP();

    void setUpLook();
    void connectControls();
    void setUpMouse();
    /// Returns a transparent overlay with a mark on the selected vertex; null if none is selected.
    const QImage& vertexMark(const std::optional<FacePart>& part);
    void showTextureName();
    void zoomChanged();
    /// Scrolls to the selected face or vertex if it is out of sight. Returns true if it was.
    bool revealSelection();
    void offsetChanged();
    /// Redraws and emits edited() if anything is out of date.
    void texCoordsChanged(const Changes& changes);

    Ui::TMaterial& ui_;
    FaceTreeModel& faces_;
    QWidget& dialog_;
    MaterialEditing* materials_ = nullptr; ///< only while the editor is shown
    ElidedLabel* statusPanels_[2] = {};    ///< owned by the dialog
    TexCoordView view_;
    TexCoordColors colors_;
    Bitmap picture_;
    QImage mark_;
    struct Scroll {
        DragInput from;
        std::int32_t offsetX = 0;
        std::int32_t offsetY = 0;
    };
    std::optional<Scroll> scroll_; ///< by the middle button
    bool filling_ = false;         ///< the program sets the tree, not the user
    float turned_ = 0.0F;          ///< the wheel's rotation in notches since the last step
    std::shared_ptr<const TextureImage> texture_; ///< the image that the view shows
    std::unique_ptr<DragFilter> mouse_;           ///< destroyed first: it calls back
};

} // namespace korvane
