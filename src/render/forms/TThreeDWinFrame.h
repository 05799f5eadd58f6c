#pragma once

#include "edit/session/DocumentSession.h"
#include "render/software/SoftwareView.h"

#include <QWidget>

#include <memory>

namespace korvane {

namespace Ui {
class TThreeDWinFrame;
}

class DragFilter;
class TGlPanel;

enum class GlProbe;

/// The 3D view of a document window: draws the model with OpenGL into a panel or by software into
/// its image control. The left button turns the model, the right button and the wheel move the eye.
class TThreeDWinFrame : public QWidget {
    Q_OBJECT
  public:
    explicit TThreeDWinFrame(QWidget* parent = nullptr);
    ~TThreeDWinFrame() override;

    /// The session whose document to draw, which has to outlive its use here; null to draw nothing.
    /// Releases the context of the one before.
    void setSession(DocumentSession* session);
    /// Gets what the drawing interface of the settings needs: a context for OpenGL. The user is
    /// told where there is none; the model is then drawn by software.
    void setUpView();
    /// Frees all that is held in the context, and the context. Until setUpView() the model is drawn
    /// by software. The interface of the settings may change only while nothing is held.
    void releaseContext();
    /// Draws the model anew, in the size that the view has by now.
    void redraw();

  Q_SIGNALS:
    /// There was no context to be had after all; the model is drawn by software.
    void contextFailed();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void FrameResize();
    /// Says in the corner of the picture why there is nothing to be seen, or nothing.
    void showReason();
    void setUpMouse();
    /// Draws what the mouse has done to the view.
    void apply(const Changes& changes);
    /// Ends a running drag without a trace; whether there was one.
    bool cancelDrag();
    void showFailure(GlProbe probe);

    std::unique_ptr<Ui::TThreeDWinFrame> ui_;
    DocumentSession* session_ = nullptr;
    ViewGeometry geometry_{0, 0};
    SoftwareView view_;
    TGlPanel* panel_ = nullptr;         ///< a child; null unless drawing with OpenGL
    std::unique_ptr<DragFilter> mouse_; ///< goes first: it calls back
};

} // namespace korvane
