#include "render/gl/GlOffscreen.h"

#include "render/picture/Bitmap.h"

#include <QOpenGLFramebufferObject>
#include <QScopeGuard>

#include <GL/gl.h>
#include <GL/glext.h>
#include <algorithm>

namespace korvane {

GlOffscreen::GlOffscreen(GlDriver& driver)
    : driver_(driver), gl_(std::in_place, driver), status_(gl_->status()) {}

GlOffscreen::~GlOffscreen() {
    release();
}

/// Whatever the context holds goes with it.
void GlOffscreen::release() {
    view_ = GlView();
    setUp_ = false;
    framebuffer_.reset();
    gl_.reset();
}

GlStatus GlOffscreen::redraw(ModelDocument& document, ViewState& state, std::int32_t width,
                             std::int32_t height) {
    try {
        status_ = draw(document, state, width, height);
        if (status_ == GlStatus::NotCurrent) {
            release();
            status_ = draw(document, state, width, height);
        }
    } catch (...) {
        release(); // interrupted commands leave the context in an unknown state
        throw;
    }
    return status_;
}

GlStatus GlOffscreen::redraw(ModelDocument& document, ViewState& state, std::int32_t width,
                             std::int32_t height, Bitmap& picture) {
    redraw(document, state, width, height);
    // a driver that was reset while it drew reports that only now
    if (status_ == GlStatus::Works && read(picture) != GlStatus::Works) {
        redraw(document, state, width, height);
        read(picture);
    }
    return status_;
}

GlStatus GlOffscreen::draw(ModelDocument& document, ViewState& state, std::int32_t width,
                           std::int32_t height) {
    if (!gl_) {
        gl_.emplace(driver_);
    }
    if (gl_->status() != GlStatus::Works) {
        return gl_->status();
    }
    const GlCurrent current(*gl_);
    if (!current.isCurrent()) {
        return GlStatus::NotCurrent;
    }
    const QSize size(std::max(width, 1), std::max(height, 1));
    if (!framebuffer_ || framebuffer_->size() != size) {
        framebuffer_.reset();
        // no alpha: blending would leave meaningless values, which would then scale the colours
        framebuffer_ = std::make_unique<QOpenGLFramebufferObject>(
            size, QOpenGLFramebufferObject::Depth, GL_TEXTURE_2D, GL_RGB8);
    }
    if (!framebuffer_->isValid() || !framebuffer_->bind()) {
        return GlStatus::NoFramebuffer;
    }
    if (!setUp_) {
        view_.setUp(document, state);
        setUp_ = true;
    }
    view_.resize(width, height);
    // whatever the colour, drawing sets every bit of the pixel
    glLogicOp(GL_SET);
    covering_ ? glEnable(GL_COLOR_LOGIC_OP) : glDisable(GL_COLOR_LOGIC_OP);
    view_.redraw(document, state);
    glFinish();
    return GlStatus::Works;
}

GlStatus GlOffscreen::read(Bitmap& picture) {
    if (status_ != GlStatus::Works || !framebuffer_) {
        return status_;
    }
    const GlCurrent current(*gl_);
    if (!current.isCurrent() || !framebuffer_->bind()) {
        status_ = GlStatus::NotCurrent;
        return status_;
    }
    picture.resize(framebuffer_->width(), framebuffer_->height());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, picture.width(), picture.height(), GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV,
                 picture.pixels());
    picture.flipRows(); // OpenGL's rows go upward
    return status_;
}

GlStatus GlOffscreen::readWithCoverage(ModelDocument& document, ViewState& state, Bitmap& picture) {
    constexpr BitmapPixel black = 0xff000000U;
    if (read(picture) != GlStatus::Works) {
        return status_;
    }
    ViewState over = state;
    over.colors.background = black;
    // applyMode() sets the background: make it run for this drawing and the next
    over.lastDrawnMode.reset();
    state.lastDrawnMode.reset();
    covering_ = true;
    const auto done = qScopeGuard([this] { covering_ = false; });
    Bitmap cover;
    if (redraw(document, over, picture.width(), picture.height(), cover) == GlStatus::Works) {
        for (std::size_t i = 0; i < picture.pixelCount(); ++i) {
            picture.pixels()[i] = cover.pixels()[i] == black ? 0 : picture.pixels()[i];
        }
    }
    return status_;
}

} // namespace korvane
