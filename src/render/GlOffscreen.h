#pragma once

#include "render/GlView.h"

#include <QImage>

#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QOpenGLFramebufferObject;
class QSurfaceFormat;

namespace korvane {

/// What a context has to be to draw with: fixed functions, 32 bits of depth if there are, no alpha.
QSurfaceFormat glFormat();

/// How far making an OpenGL context got on this machine.
enum class GlProbe { Works, NoContext, NotCurrent };

/// An OpenGL view that draws into a picture in memory. Needs a QGuiApplication.
class GlOffscreen {
  public:
    /// Tries to make a context and a framebuffer of the size in pixels; see status().
    GlOffscreen(std::int32_t width, std::int32_t height);
    ~GlOffscreen();
    GlOffscreen(const GlOffscreen&) = delete;
    GlOffscreen& operator=(const GlOffscreen&) = delete;

    /// Drawing is possible only where it works.
    [[nodiscard]] GlProbe status() const { return status_; }
    /// Draws and waits until it is done.
    void redraw(ModelDocument& document, ViewState& state);
    /// The last picture.
    [[nodiscard]] QImage picture() const;
    [[nodiscard]] GlView& view() { return view_; }

  private:
    GlProbe start(std::int32_t width, std::int32_t height);

    std::unique_ptr<QOffscreenSurface> surface_;
    std::unique_ptr<QOpenGLContext> context_;
    std::unique_ptr<QOpenGLFramebufferObject> framebuffer_;
    GlView view_;
    bool setUp_ = false;
    GlProbe status_;
};

} // namespace korvane
