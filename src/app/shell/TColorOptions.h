#pragma once

#include "render/planes/PlaneView.h"
#include "render/scene/ViewState.h"

#include <QDialog>

#include <memory>

namespace korvane {

namespace Ui {
class TColorOptions;
}

/// The drawing colours of this run, which nothing else keeps. A swatch takes a chosen colour at
/// once: Cancel withholds it from the open windows only.
class TColorOptions : public QDialog {
    Q_OBJECT
  public:
    explicit TColorOptions(QWidget* parent);
    ~TColorOptions() override;

    /// What a 3D view draws with.
    [[nodiscard]] ViewColors viewColors() const;
    /// What the 2D views draw with.
    [[nodiscard]] PlaneColors planeColors() const;

  private:
    void ThreeDWinColorEditClick();
    void WireRenderSelectedEditClick();
    void WireRenderSelectedChildEditClick();
    void WireRenderUnselectedEditClick();
    void TwoDWinColorEditClick();
    void WorldAxesEditClick();
    void ObjAxesEditClick();

    std::unique_ptr<Ui::TColorOptions> ui_;
};

} // namespace korvane
