#pragma once

#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QSurface;

namespace korvane {

/// How far drawing with OpenGL got.
enum class GlStatus {
    Works,
    NoContext,     ///< there is no context of the right kind
    NotCurrent,    ///< the context cannot be made current
    NoFramebuffer, ///< no framebuffer of the size can be had
};

/// How contexts are made and made current. Tests put one in its place that fails.
class GlDriver {
  public:
    virtual ~GlDriver() = default;
    virtual bool create(QOpenGLContext& context);
    virtual bool makeCurrent(QOpenGLContext& context, QSurface& surface);

    /// That of this machine.
    static GlDriver& standard();
};

/// An OpenGL context to draw with off the screen: fixed functions, 32 bits of depth if there are,
/// no alpha. Needs a QGuiApplication.
class GlContext {
  public:
    /// Tries to make one; see status().
    explicit GlContext(GlDriver& driver = GlDriver::standard());
    ~GlContext();
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    [[nodiscard]] GlStatus status() const { return status_; }
    /// Only where it works.
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
    [[nodiscard]] bool works() const { return works_; }

  private:
    QOpenGLContext& context_;
    bool works_;
};

} // namespace korvane
