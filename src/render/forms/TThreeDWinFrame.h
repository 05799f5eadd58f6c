#pragma once

#include "app/widgets/PictureWidget.h"
#include "edit/session/DocumentSession.h"
#include "render/software/SoftwareView.h"

#include <memory>

namespace korvane {

namespace Ui {
class TThreeDWinFrame;
}

class DragFilter;
class GlDriver;
class GlOffscreen;

enum class GlStatus;

/// The 3D view of a document window: draws the model with OpenGL or by software and shows the
/// picture in its image control. The left button turns the model, the right button and the wheel
/// move the eye. Ctrl with the left one selects a frame.
class TThreeDWinFrame : public PictureWidget {
    Q_OBJECT
  public:
    explicit TThreeDWinFrame(QWidget* parent = nullptr);
    ~TThreeDWinFrame() override;

    /// Takes another OpenGL driver, which must outlive the view, from the next setUpView() on.
    void setDriver(GlDriver& driver) { driver_ = &driver; }
    /// The session whose document to draw, which has to outlive its use here; null to draw nothing.
    /// Releases the context of the one before.
    void setSession(DocumentSession* session);
    /// Gets what the drawing interface of the settings needs: a context for OpenGL. The user is
    /// told where there is none; the model is then drawn by software.
    void setUpView();
    /// Frees all that is held in the context, and the context. Until setUpView() the model is drawn
    /// by software. The interface of the settings may change only while nothing is held.
    void releaseContext();
    /// Has the model drawn anew with the next paint, in the size that the view has by then.
    void redraw();
    /// What draws with OpenGL; null while the model is drawn by software.
    [[nodiscard]] const GlOffscreen* openGl() const { return gl_.get(); }

  Q_SIGNALS:
    /// A key, the menu or a pick here has put more out of date than the picture of this view.
    void changed(const Changes& changes);
    /// The driver took back what it had promised; the model is drawn by software from now on.
    void contextFailed(GlStatus status);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void FrameResize();
    /// The sizes that the view has at the moment.
    [[nodiscard]] ViewGeometry geometry() const;
    void draw();
    /// Whether there is a picture now.
    bool drawByOpenGl(const ViewGeometry& geometry);
    void drawBySoftware(const ViewGeometry& geometry);
    /// Says in the corner of the picture why there is nothing to be seen, or nothing.
    void showReason();
    void setUpMouse();
    void setUpKeys();
    /// Draws what the mouse has done to the view.
    void apply(const Changes& changes);
    /// Ends a running drag without a trace; whether there was one.
    bool cancelDrag();
    void showFailure(GlStatus status);

    std::unique_ptr<Ui::TThreeDWinFrame> ui_;
    DocumentSession* session_ = nullptr;
    SoftwareView view_;
    GlDriver* driver_;
    std::unique_ptr<GlOffscreen> gl_;
    Bitmap glPicture_;
    std::unique_ptr<DragFilter> mouse_; ///< goes first: it calls back
};

} // namespace korvane
