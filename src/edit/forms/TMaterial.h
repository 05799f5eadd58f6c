#pragma once

#include "edit/materials/FaceTreeModel.h"
#include "edit/session/MaterialEditing.h"

#include <QDialog>

#include <memory>

namespace korvane {

class ColorSwatch;
class TOKBottomDlg;
class TTextureView;

namespace Ui {
class TMaterial;
}

/// The material editor: the materials of a frame's mesh, which faces use them, their values and
/// textures, and the texture coordinates of the faces.
class TMaterial : public QDialog {
    Q_OBJECT
  public:
    explicit TMaterial(QWidget* parent);
    ~TMaterial() override;

    /// The dialog that lets the user choose texture files; it must outlive every edit().
    void setTextureDialog(TOKBottomDlg& dialog) { textureDialog_ = &dialog; }

    /// Shows the editor until the user closes it.
    void edit(MaterialEditing& materials);

  Q_SIGNALS:
    /// The model has changed in what the views show.
    void edited(const Changes& changes);

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

    void connectControls();
    void setUpLook();
    /// Tells the views of a change.
    void tell(const Changes& changes);
    void commitPending();
    void fillSlots();
    void fillMaterials();
    void lockLastMaterial();
    void enableControls();
    void showValues();
    void changeColor(ColorSwatch& swatch, MaterialColor color);
    void refuseShininess();

    std::unique_ptr<Ui::TMaterial> ui_;
    TOKBottomDlg* textureDialog_ = nullptr;
    FaceTreeModel faces_;
    MaterialEditing* materials_ = nullptr; ///< while the editor is shown
    bool showNeeded_ = false;
    bool filling_ = false;                  ///< controls are set to show the model, not by the user
    std::unique_ptr<TTextureView> texture_; ///< goes first: it works with the controls
};

} // namespace korvane
