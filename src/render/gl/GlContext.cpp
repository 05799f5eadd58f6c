#include "render/gl/GlContext.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QSurfaceFormat>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace korvane {

namespace {

/// A driver that draws in software allocates the memory of each frame on the heap and frees it at
/// the frame's end. Makes the heap keep that much: returning it to the system and faulting it in
/// again, page by page, costs a twentieth of each frame.
void keepFrameMemory() {
#ifdef __GLIBC__
    constexpr int kept = 64 << 20;
    constexpr int largestBlock = 32 << 20;
    mallopt(M_TRIM_THRESHOLD, kept);
    mallopt(M_MMAP_THRESHOLD, largestBlock);
#endif
}

QSurfaceFormat glFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::NoProfile);
    format.setOption(QSurfaceFormat::ResetNotification);
    format.setDepthBufferSize(32);
    format.setAlphaBufferSize(0);
    format.setStencilBufferSize(0);
    return format;
}

} // namespace

bool GlDriver::create(QOpenGLContext& context) {
    // these platforms crash instead of failing
    const QString platform = QGuiApplication::platformName();
    return platform != QStringLiteral("offscreen") && platform != QStringLiteral("minimal") &&
           !platform.isEmpty() && context.create();
}

bool GlDriver::makeCurrent(QOpenGLContext& context, QSurface& surface) {
    return context.makeCurrent(&surface);
}

GlDriver& GlDriver::standard() {
    static GlDriver driver;
    return driver;
}

GlContext::GlContext(GlDriver& driver) : driver_(driver), status_(start()) {
    if (status_ == GlStatus::Works) {
        keepFrameMemory();
    }
}

GlContext::~GlContext() = default;

GlStatus GlContext::start() {
    context_ = std::make_unique<QOpenGLContext>();
    context_->setFormat(glFormat());
    if (!driver_.create(*context_) || context_->isOpenGLES() ||
        context_->format().profile() == QSurfaceFormat::CoreProfile) {
        return GlStatus::NoContext;
    }
    surface_ = std::make_unique<QOffscreenSurface>();
    surface_->setFormat(context_->format());
    surface_->create();
    return surface_->isValid() && GlCurrent(*this).isCurrent() ? GlStatus::Works
                                                               : GlStatus::NotCurrent;
}

GlCurrent::GlCurrent(const GlContext& gl)
    : context_(*gl.context_), current_(gl.driver_.makeCurrent(context_, *gl.surface_)) {}

GlCurrent::~GlCurrent() {
    if (current_) {
        context_.doneCurrent();
    }
}

} // namespace korvane
