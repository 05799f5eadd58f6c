#include "render/gl/GlContext.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace korvane {

namespace {

/// A driver that draws in software takes the memory of each frame from the heap and gives it back
/// at the frame's end. Lets the heap keep as much: handed to the system and taken again, page by
/// page, it costs a twentieth of each frame.
void keepFrameMemory() {
#ifdef __GLIBC__
    constexpr int kept = 64 << 20;
    constexpr int largestBlock = 32 << 20;
    mallopt(M_TRIM_THRESHOLD, kept);
    mallopt(M_MMAP_THRESHOLD, largestBlock);
#endif
}

} // namespace

QSurfaceFormat glFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::NoProfile);
    format.setDepthBufferSize(32);
    format.setAlphaBufferSize(0);
    format.setStencilBufferSize(0);
    return format;
}

GlCurrent::GlCurrent(QOpenGLContext& context, QSurface& surface)
    : context_(context), before_(QOpenGLContext::currentContext()),
      beforeSurface_(before_ != nullptr ? before_->surface() : nullptr),
      works_(context.makeCurrent(&surface)) {}

GlCurrent::~GlCurrent() {
    if (before_ != nullptr) {
        before_->makeCurrent(beforeSurface_);
    } else if (works_) {
        context_.doneCurrent();
    }
}

GlProbe probeContext() {
    static GlProbe known = GlProbe::NoContext;
    if (known != GlProbe::Works) {
        known = GlContext().status();
    }
    return known;
}

GlContext::GlContext() : status_(start()) {
    if (status_ == GlProbe::Works) {
        keepFrameMemory();
    }
}

GlContext::~GlContext() = default;

QSurface& GlContext::surface() const {
    return *surface_;
}

GlProbe GlContext::start() {
    // these platforms crash instead of telling that they cannot
    const QString platform = QGuiApplication::platformName();
    if (platform == QStringLiteral("offscreen") || platform == QStringLiteral("minimal") ||
        platform.isEmpty()) {
        return GlProbe::NoContext;
    }
    context_ = std::make_unique<QOpenGLContext>();
    context_->setFormat(glFormat());
    if (!context_->create() || context_->isOpenGLES() ||
        context_->format().profile() == QSurfaceFormat::CoreProfile) {
        return GlProbe::NoContext;
    }
    surface_ = std::make_unique<QOffscreenSurface>();
    surface_->setFormat(context_->format());
    surface_->create();
    return surface_->isValid() && GlCurrent(*context_, *surface_).works() ? GlProbe::Works
                                                                          : GlProbe::NotCurrent;
}

} // namespace korvane
