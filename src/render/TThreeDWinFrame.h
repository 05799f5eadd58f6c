#pragma once

#include "render/OrbitDrag.h"
#include "render/SoftwareView.h"

#include <QWidget>

#include <memory>

namespace korvane {

namespace Ui {
class TThreeDWinFrame;
}

/// The 3D view of a document window: draws the model by software into its image control. The left
/// button turns the model, the right button and the wheel move the eye.
class TThreeDWinFrame : public QWidget {
    Q_OBJECT
  public:
    explicit TThreeDWinFrame(QWidget* parent = nullptr);
    ~TThreeDWinFrame() override;

    /// The document to draw, which has to outlive its use here; null to draw nothing.
    void setDocument(ModelDocument* document);
    /// The model is another one: the camera goes to its start as soon as the view has a size.
    void placeCamera() { cameraPending_ = true; }
    /// The settings; redraw() after changing them.
    [[nodiscard]] ViewState& state() { return state_; }

    /// Draws the model anew, in the size that the view has by now.
    void redraw();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void FrameResize();
    void mouseDown(const DragInput& input);
    void mouseMove(const DragInput& input);
    void mouseUp(const DragInput& input);
    void cancelDrag();
    [[nodiscard]] DragInput dragInput(const QMouseEvent& event) const;

    std::unique_ptr<Ui::TThreeDWinFrame> ui_;
    ModelDocument* document_ = nullptr;
    ViewState state_;
    SoftwareView view_;
    OrbitDrag drag_;
    bool cameraPending_ = true;
};

} // namespace korvane
