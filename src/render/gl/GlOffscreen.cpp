#include "render/gl/GlOffscreen.h"

#include <QOpenGLFramebufferObject>

#include <GL/gl.h>

namespace korvane {

GlOffscreen::GlOffscreen(std::int32_t width, std::int32_t height) : status_(start(width, height)) {}

GlProbe GlOffscreen::start(std::int32_t width, std::int32_t height) {
    if (gl_.status() != GlProbe::Works) {
        return gl_.status();
    }
    const GlCurrent current(gl_.context(), gl_.surface());
    // without alpha: mixing would leave one of no meaning, which would scale the colours
    framebuffer_ = std::make_unique<QOpenGLFramebufferObject>(
        width, height, QOpenGLFramebufferObject::Depth, GL_TEXTURE_2D, GL_RGB8);
    return framebuffer_->isValid() ? GlProbe::Works : GlProbe::NotCurrent;
}

GlOffscreen::~GlOffscreen() {
    if (framebuffer_) {
        const GlCurrent current(gl_.context(), gl_.surface());
        view_.release();
        framebuffer_.reset();
    }
}

void GlOffscreen::redraw(ModelDocument& document, ViewState& state) {
    if (status_ != GlProbe::Works) {
        return;
    }
    const GlCurrent current(gl_.context(), gl_.surface());
    framebuffer_->bind();
    if (!setUp_) {
        setUp_ = true;
        view_.setUp(document, state, framebuffer_->width(), framebuffer_->height());
    }
    view_.redraw(document, state);
    glFinish();
}

QImage GlOffscreen::picture() const {
    if (status_ != GlProbe::Works) {
        return {};
    }
    const GlCurrent current(gl_.context(), gl_.surface());
    return framebuffer_->toImage();
}

} // namespace korvane
