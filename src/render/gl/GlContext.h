#pragma once

#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QSurface;
class QSurfaceFormat;

namespace korvane {

/// What a context has to be to draw with: fixed functions, 32 bits of depth if there are, no alpha.
QSurfaceFormat glFormat();

/// How far making an OpenGL context got on this machine.
enum class GlProbe { Works, NoContext, NotCurrent };

/// Finds out; what once worked is not tried again. Needs a QGuiApplication.
GlProbe probeContext();

/// Makes a context current for as long as it lives; then the one that was current before is again.
class GlCurrent {
  public:
    GlCurrent(QOpenGLContext& context, QSurface& surface);
    ~GlCurrent();
    GlCurrent(const GlCurrent&) = delete;
    GlCurrent& operator=(const GlCurrent&) = delete;

    /// Whether the context could be made current.
    [[nodiscard]] bool works() const { return works_; }

  private:
    QOpenGLContext& context_;
    QOpenGLContext* before_;
    QSurface* beforeSurface_;
    bool works_;
};

/// An OpenGL context of the kind that the 3D view draws with, off the screen. Needs a
/// QGuiApplication.
class GlContext {
  public:
    GlContext();
    ~GlContext();
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    /// The rest is for where it works.
    [[nodiscard]] GlProbe status() const { return status_; }
    [[nodiscard]] QOpenGLContext& context() const { return *context_; }
    [[nodiscard]] QSurface& surface() const;

  private:
    GlProbe start();

    std::unique_ptr<QOffscreenSurface> surface_;
    std::unique_ptr<QOpenGLContext> context_;
    GlProbe status_;
};

} // namespace korvane
