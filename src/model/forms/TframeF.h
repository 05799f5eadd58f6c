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

/// The frame options: edits the flags of a frame. A click on a box writes all flags at once; Cancel
/// deliberately does not restore them.
class TframeF : public QDialog {
    Q_OBJECT
  public:
    explicit TframeF(QWidget* parent);
    ~TframeF() override;

    using Write = std::function<void(const FrameFlags&)>;

    /// Shows a frame's flags and calls `write` whenever the user changes one. Returns true if the
    /// user confirms.
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
    /// Sets a flag from its box and writes all flags.
    void setFlag(bool FrameFlags::*flag, const QCheckBox& box);

    std::unique_ptr<Ui::TframeF> ui_;
    FrameFlags flags_;
    Write write_;
};

} // namespace korvane
