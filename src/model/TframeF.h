#pragma once

#include "model/FrameRecord.h"

#include <QDialog>

#include <memory>

class QCheckBox;

namespace korvane {

namespace Ui {
class TframeF;
}

/// The frame options: the flags of a frame, each written into the frame at the moment its box is
/// clicked. Cancel deliberately puts nothing back.
class TframeF : public QDialog {
    Q_OBJECT
  public:
    explicit TframeF(QWidget* parent);
    ~TframeF() override;

    /// Shows the dialog for a frame, which must stay where it is until this returns; whether the
    /// user confirmed.
    bool edit(FrameRecord& frame);

  private:
    void FrameEditActivate();
    void MeshBoxClick();
    void BackwardsClicked();
    void EmissiveClicked();
    void MaterialChecked();
    void NormalsChecked();
    void TexCoordsChecked();
    void FlameChecked();
    void GFlagActionExecute();
    void AnimationActionExecute();

    void enableBoxes();

    std::unique_ptr<Ui::TframeF> ui_;
    FrameRecord* frame_ = nullptr; ///< while the dialog shows
};

} // namespace korvane
