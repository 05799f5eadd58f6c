#pragma once

#include "render/planes/PlaneView.h"
#include "render/scene/ViewState.h"

#include <QDialog>

#include <memory>

namespace korvane {

namespace Ui {
class TColorOptions;
}

/// The colour options; the swatches hold the drawing colours of the run. A swatch keeps a chosen
/// colour even after Cancel, which only withholds it from the open windows.
class TColorOptions : public QDialog {
    Q_OBJECT
  public:
    explicit TColorOptions(QWidget* parent);
    ~TColorOptions() override;

    /// Returns the colours of the 3D views.
    [[nodiscard]] ViewColors viewColors() const;
    /// Returns the colours of the 2D views.
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
