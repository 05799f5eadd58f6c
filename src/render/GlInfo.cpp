#include "render/GlInfo.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSurfaceFormat>

namespace korvane {

namespace {

QString glText(QOpenGLFunctions& functions, GLenum name) {
    return QString::fromLatin1(reinterpret_cast<const char*>(functions.glGetString(name)));
}

} // namespace

std::optional<GlInfo> probeGl() {
    QSurfaceFormat format;
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::NoProfile);
    QOpenGLContext context;
    context.setFormat(format);
    if (!context.create()) {
        return std::nullopt;
    }
    QOffscreenSurface surface;
    surface.setFormat(context.format());
    surface.create();
    QOpenGLContext* const before = QOpenGLContext::currentContext();
    QSurface* const beforeSurface = before != nullptr ? before->surface() : nullptr;
    if (!surface.isValid() || !context.makeCurrent(&surface)) {
        return std::nullopt;
    }
    QOpenGLFunctions& functions = *context.functions();
    GlInfo info{glText(functions, GL_VENDOR), glText(functions, GL_RENDERER),
                glText(functions, GL_VERSION)};
    context.doneCurrent();
    if (before != nullptr) {
        before->makeCurrent(beforeSurface);
    }
    return info;
}

} // namespace korvane
