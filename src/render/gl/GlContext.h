#pragma once

#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QSurface;

namespace korvane {

/// Whether drawing with OpenGL works, or where it failed.
enum class GlStatus {
    Works,
    NoContext,     ///< there is no context of the right kind
    NotCurrent,    ///< the context cannot be made current
    NoFramebuffer, ///< no framebuffer of that size can be made
};

/// Makes contexts and makes them current. Tests replace it by one that fails.
class GlDriver {
  public:
    virtual ~GlDriver() = default;
    virtual bool create(QOpenGLContext& context);
    virtual bool makeCurrent(QOpenGLContext& context, QSurface& surface);

    /// The driver of this machine.
    static GlDriver& standard();
};

/// An OpenGL context for drawing off the screen: fixed functions, 32 bits of depth if available, no
/// alpha. Needs a QGuiApplication.
class GlContext {
  public:
    /// Tries to make the context; see status().
    explicit GlContext(GlDriver& driver = GlDriver::standard());
    ~GlContext();
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    [[nodiscard]] GlStatus status() const { return status_; }
    /// Call only if status() is Works.
    [[nodiscard]] QOpenGLContext& context() const { return *context_; }

  private:
    friend class GlCurrent;
    GlStatus start();

    GlDriver& driver_;
    std::unique_ptr<QOffscreenSurface> surface_;
    std::unique_ptr<QOpenGLContext> context_;
    GlStatus status_;
};

/// Makes a context current for as long as it lives.
class GlCurrent {
  public:
    explicit GlCurrent(const GlContext& gl);
    ~GlCurrent();
    GlCurrent(const GlCurrent&) = delete;
    GlCurrent& operator=(const GlCurrent&) = delete;

    /// Whether the context could be made current.
    [[nodiscard]] bool isCurrent() const { return current_; }

  private:
    QOpenGLContext& context_;
    bool current_;
};

} // namespace korvane
