#include "render/forms/TGlPanel.h"

#include "app/widgets/DevicePixels.h"
#include "render/gl/GlContext.h"

#include <QOpenGLContext>
#include <QWindow>

#include <GL/gl.h>
#include <utility>

namespace korvane {

TGlPanel::TGlPanel(ModelDocument& document, ViewState& state, QWidget* parent)
    : QOpenGLWidget(parent), document_(document), state_(state) {
    setObjectName(QStringLiteral("GlPanel"));
    setAccessibleName(QStringLiteral("Picture of the model"));
    setFormat(glFormat());
    // without alpha: mixing would leave one of no meaning
    setTextureFormat(GL_RGB8);
    // the picture stays until it is drawn anew: windows that move over it cost no drawing
    setUpdateBehavior(PartialUpdate);
}

TGlPanel::~TGlPanel() {
    disconnect(contextEnd_);
    release();
}

void TGlPanel::redraw() {
    stale_ = true;
    update();
}

bool TGlPanel::failed() const {
    const QWindow* shown = window()->windowHandle();
    return isVisible() && !size().isEmpty() && shown != nullptr && shown->isExposed() && !isValid();
}

void TGlPanel::initializeGL() {
    // the context goes before the panel when the panel moves to another top-level window
    contextEnd_ = connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &TGlPanel::release);
    const QSize size = sizeInPixels(*this);
    view_.setUp(document_, state_, size.width(), size.height());
    stale_ = true;
}

void TGlPanel::resizeGL(int /*width*/, int /*height*/) {
    stale_ = true;
}

void TGlPanel::paintGL() {
    const QSize size = sizeInPixels(*this);
    // the scale of the screen may have changed without a change of the panel's size
    if (size != QSize(view_.geometry().width, view_.geometry().height)) {
        view_.resize(size.width(), size.height());
        stale_ = true;
    }
    if (std::exchange(stale_, false)) {
        view_.redraw(document_, state_);
    }
}

void TGlPanel::release() {
    if (!isValid()) {
        return;
    }
    makeCurrent();
    view_.release();
    doneCurrent();
}

} // namespace korvane
