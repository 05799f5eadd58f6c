#pragma once

#include "model/records/FrameFlags.h"

#include <QDialog>

#include <functional>
#include <memory>

class QCheckBox;

namespace korvane {

namespace Ui {
class TframeF;
}

/// The frame options: the flags of a frame, all handed over at the moment a box is clicked. Cancel
/// deliberately puts nothing back.
class TframeF : public QDialog {
    Q_OBJECT
  public:
    explicit TframeF(QWidget* parent);
    ~TframeF() override;

    using Write = std::function<void(const FrameFlags&)>;

    /// Shows a frame's flags and calls `write` whenever the user has changed one. Returns true if
    /// the user confirmed.
    bool edit(const FrameFlags& flags, Write write);

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
    /// Takes over what a box shows now.
    void setFlag(bool FrameFlags::*flag, const QCheckBox& box);

    std::unique_ptr<Ui::TframeF> ui_;
    FrameFlags flags_;
    Write write_;
};

} // namespace korvane
