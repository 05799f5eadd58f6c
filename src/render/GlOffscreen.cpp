#include "render/GlOffscreen.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>

#include <GL/gl.h>
#include <algorithm>

namespace korvane {

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

GlOffscreen::GlOffscreen(std::int32_t width, std::int32_t height) : status_(start(width, height)) {}

GlProbe GlOffscreen::start(std::int32_t width, std::int32_t height) {
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
    if (!surface_->isValid() || !context_->makeCurrent(surface_.get())) {
        return GlProbe::NotCurrent;
    }
    framebuffer_ =
        std::make_unique<QOpenGLFramebufferObject>(width, height, QOpenGLFramebufferObject::Depth);
    return framebuffer_->isValid() ? GlProbe::Works : GlProbe::NotCurrent;
}

GlOffscreen::~GlOffscreen() {
    if (context_ && surface_ && context_->makeCurrent(surface_.get())) {
        view_.release();
        framebuffer_.reset();
        context_->doneCurrent();
    }
}

void GlOffscreen::redraw(ModelDocument& document, ViewState& state) {
    if (status_ != GlProbe::Works || !context_->makeCurrent(surface_.get())) {
        return;
    }
    framebuffer_->bind();
    if (!setUp_) {
        setUp_ = true;
        view_.setUp(document, state, framebuffer_->width(), framebuffer_->height());
    }
    view_.redraw(document, state);
    glFinish();
}

QImage GlOffscreen::picture() const {
    if (!framebuffer_ || !context_->makeCurrent(surface_.get())) {
        return {};
    }
    QImage image = framebuffer_->toImage();
    // mixing leaves alpha of no meaning in the framebuffer: it must not scale the colours
    if (image.depth() == 32 && !image.reinterpretAsFormat(QImage::Format_RGB32)) {
        return {};
    }
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<BitmapPixel*>(image.scanLine(y));
        std::for_each(row, row + image.width(), [](BitmapPixel& p) { p |= 0xff000000U; });
    }
    return image;
}

} // namespace korvane
