#include "render/gl/GlInfo.h"

#include "render/gl/GlContext.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace korvane {

namespace {

QString glText(QOpenGLFunctions& functions, GLenum name) {
    return QString::fromLatin1(reinterpret_cast<const char*>(functions.glGetString(name)));
}

} // namespace

std::optional<GlInfo> probeGl() {
    const GlContext gl;
    if (gl.status() != GlStatus::Works) {
        return std::nullopt;
    }
    const GlCurrent current(gl);
    if (!current.isCurrent()) {
        return std::nullopt;
    }
    QOpenGLFunctions& functions = *gl.context().functions();
    return GlInfo{glText(functions, GL_VENDOR), glText(functions, GL_RENDERER),
                  glText(functions, GL_VERSION)};
}

} // namespace korvane
