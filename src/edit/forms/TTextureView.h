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
/// faces of the mesh over it, and lets the mouse move their texture coordinates. It works with the
/// editor's controls, which must outlive it.
class TTextureView : public QObject {
    Q_OBJECT
  public:
    /// `dialog` is the editor whose controls these are, `faces` what its tree shows.
    TTextureView(Ui::TMaterial& controls, FaceTreeModel& faces, QWidget& dialog);
    ~TTextureView() override;

    /// Shows these materials, which must stay until close().
    void open(MaterialEditing& materials);
    void close();

    /// Lists the faces: all, or those of the current material. What is selected stays, if it shows.
    void showFaces();
    /// The current material or its texture is another one.
    void showTexture();
    /// Shows the picture, or why there is none, and the scroll bars that it needs.
    void showPicture();
    /// Ends a running drag without a trace; whether there was one.
    bool cancelDrag();
    /// What every handler does before anything else: ends a running drag and records what is
    /// pending.
    void commitPending();
    /// The face or vertex that the tree has selected.
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
    /// The picture's mark on the selected vertex, in a picture of its own; none where none is.
    const QImage& vertexMark(const std::optional<FacePart>& part);
    void showTextureName();
    void zoomChanged();
    /// Scrolls to the selected face or vertex where it is out of sight; whether it was.
    bool revealSelection();
    void offsetChanged();
    /// After the mouse, or the end of a drag, has moved texture coordinates.
    void texCoordsChanged(const Changes& changes);

    Ui::TMaterial& ui_;
    FaceTreeModel& faces_;
    QWidget& dialog_;
    MaterialEditing* materials_ = nullptr; ///< while the editor is shown
    ElidedLabel* statusPanels_[2] = {};    ///< the dialog owns them
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
    bool filling_ = false;         ///< the tree is set to show the faces, not by the user
    float turned_ = 0.0F;          ///< of a notch of the wheel, since the last step
    std::shared_ptr<const TextureImage> texture_; ///< the image that the view shows
    std::unique_ptr<DragFilter> mouse_;           ///< goes first: it calls back
};

} // namespace korvane
