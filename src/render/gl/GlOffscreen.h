#pragma once

#include "render/gl/GlContext.h"
#include "render/gl/GlView.h"

#include <QImage>

#include <memory>

class QOpenGLFramebufferObject;

namespace korvane {

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

    GlContext gl_;
    std::unique_ptr<QOpenGLFramebufferObject> framebuffer_;
    GlView view_;
    bool setUp_ = false;
    GlProbe status_;
};

} // namespace korvane
