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
/// move the eye. Ctrl with the left button selects a frame.
class TThreeDWinFrame : public PictureWidget {
    Q_OBJECT
  public:
    explicit TThreeDWinFrame(QWidget* parent = nullptr);
    ~TThreeDWinFrame() override;

    /// Uses another OpenGL driver, which must outlive the view, from the next setUpView() on.
    void setDriver(GlDriver& driver) { driver_ = &driver; }
    /// Sets the session whose document to draw, which must outlive its use here; null draws
    /// nothing. Releases the former session's context.
    void setSession(DocumentSession* session);
    /// Makes a context if the view's settings ask for OpenGL. If that fails, tells the user and
    /// draws the model by software.
    void setUpView();
    /// Frees the context and everything in it. Until setUpView() the model is drawn by software.
    /// Call it before the drawing interface in the settings changes.
    void releaseContext();
    /// Has the model drawn again at the next paint, in the view's size at that time.
    void redraw();
    /// Returns the OpenGL renderer; null while the model is drawn by software.
    [[nodiscard]] const GlOffscreen* openGl() const { return gl_.get(); }

  Q_SIGNALS:
    /// A key, the menu or a pick in this view has made things out of date.
    void changed(const Changes& changes);
    /// OpenGL has failed; the model is drawn by software from now on.
    void contextFailed(GlStatus status);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void FrameResize();
    /// Returns the view's current size in device pixels.
    [[nodiscard]] ViewGeometry geometry() const;
    void draw();
    /// Returns false if OpenGL has failed and there is no picture.
    bool drawByOpenGl(const ViewGeometry& geometry);
    void drawBySoftware(const ViewGeometry& geometry);
    /// If the view can show no face, shows the reason in the corner of the picture.
    void showReason();
    void setUpMouse();
    void setUpKeys();
    /// Redraws the view if the changes concern it.
    void apply(const Changes& changes);
    /// Reverts a running drag. Returns true if there was one.
    bool cancelDrag();
    void showFailure(GlStatus status);

    std::unique_ptr<Ui::TThreeDWinFrame> ui_;
    DocumentSession* session_ = nullptr;
    SoftwareView view_;
    GlDriver* driver_;
    std::unique_ptr<GlOffscreen> gl_;
    Bitmap glPicture_;
    std::unique_ptr<DragFilter> mouse_; ///< destroyed first: it calls back
};

} // namespace korvane
