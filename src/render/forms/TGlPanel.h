#pragma once

#include "render/gl/GlView.h"

#include <QMetaObject>
#include <QOpenGLWidget>

namespace korvane {

/// The panel that the 3D view draws into with OpenGL. It handles no mouse event, so that its parent
/// gets them. Make one only where probeContext() says that OpenGL works.
class TGlPanel : public QOpenGLWidget {
    Q_OBJECT
  public:
    /// Both have to outlive the panel.
    TGlPanel(ModelDocument& document, ViewState& state, QWidget* parent);
    ~TGlPanel() override;

    /// Draws the model anew, as soon as the panel is painted next.
    void redraw();
    /// Whether there was an attempt to get a context, without success.
    [[nodiscard]] bool failed() const;
    [[nodiscard]] const GlView& view() const { return view_; }

  protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;

  private:
    void release();

    ModelDocument& document_;
    ViewState& state_;

    GlView view_;
    QMetaObject::Connection contextEnd_;
    bool stale_ = true; ///< what the panel holds is not what it should show
};

} // namespace korvane
