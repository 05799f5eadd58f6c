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

    /// Sets the dialog that chooses texture files; it must outlive every edit().
    void setTextureDialog(TOKBottomDlg& dialog) { textureDialog_ = &dialog; }

    /// Shows the editor until the user closes it.
    void edit(MaterialEditing& materials);

  Q_SIGNALS:
    /// The user has changed the model; `changes` is what is out of date.
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
    /// Emits edited() if anything is out of date.
    void emitChanges(const Changes& changes);
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
    MaterialEditing* materials_ = nullptr; ///< only while the editor is shown
    bool showNeeded_ = false;
    bool filling_ = false;                  ///< the program sets controls, not the user
    std::unique_ptr<TTextureView> texture_; ///< destroyed first: it uses the controls
};

} // namespace korvane
