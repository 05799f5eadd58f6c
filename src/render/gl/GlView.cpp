#include "render/gl/GlView.h"

#include "model/records/FrameWalk.h"
#include "render/scene/DrawCache.h"

#include <QtGlobal>

#include <GL/gl.h>
#include <GL/glext.h>
#include <GL/glu.h>

namespace korvane {

namespace {

void setEnabled(GLenum what, bool enabled) {
    if (enabled) {
        glEnable(what);
    } else {
        glDisable(what);
    }
}

void setLight(const ViewState& state) {
    // in eye space: OpenGL transforms the position by the current matrix
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    const GLfloat position[] = {state.light.x, state.light.y, -state.light.z, 0.0F};
    glLightfv(GL_LIGHT0, GL_POSITION, position);
}

/// Brings the context to the render mode and the background colour.
void applyMode(ViewState& state) {
    const BitmapPixel background = state.colors.background;
    const auto channel = [background](unsigned shift) {
        return static_cast<float>(background >> shift & 0xffU) * (1.0F / 255.0F);
    };
    glClearColor(channel(16), channel(8), channel(0), 1.0F);
    if (state.mode == RenderMode::Wireframe) {
        glDisable(GL_BLEND);
        glDisable(GL_LIGHTING);
        glDisable(GL_COLOR_MATERIAL);
        glDisable(GL_TEXTURE_2D);
        glShadeModel(GL_FLAT);
    } else {
        glEnable(GL_BLEND);
        glEnable(GL_LIGHTING);
        glEnable(GL_COLOR_MATERIAL);
        glShadeModel(GL_SMOOTH);
        if (state.mode == RenderMode::FlatShading) {
            glDisable(GL_BLEND);
            glEnable(GL_LIGHTING);
            glEnable(GL_COLOR_MATERIAL);
            glShadeModel(GL_FLAT);
        }
    }
    state.lastDrawnMode = state.mode;
}

/// The frame's matrix for OpenGL. Column vectors and column-major storage cancel out: the same
/// sixteen numbers in the same order.
Matrix4 modelView(const DrawContext& context, const Matrix4& world, const ModelDocument& document) {
    Matrix4 fromCentre = world;
    fromCentre[12] -= document.CameraCenter.x;
    fromCentre[13] -= document.CameraCenter.y;
    fromCentre[14] -= document.CameraCenter.z;
    // the model ignores the last column, so it must not affect OpenGL's division
    fromCentre[3] = fromCentre[7] = fromCentre[11] = 0.0F;
    fromCentre[15] = 1.0F;
    // no scaling here, which would change the light: the projection scales
    const float distance = document.CameraDistance / context.state.scaleFactor;
    return MatrixMatrix(fromCentre, cameraMatrix(DrawApi::OpenGL, context.state.angles, distance));
}

void setColor(BitmapPixel color) {
    constexpr float unit = 1.0F / 255.0F;
    glColor4f(static_cast<float>(color >> 16U & 0xffU) * unit,
              static_cast<float>(color >> 8U & 0xffU) * unit,
              static_cast<float>(color & 0xffU) * unit, 1.0F);
}

/// Draws the box of the selected frame: two loops around it and four lines between them.
void drawBox(const DrawContext& context, const DrawItem& item) {
    const Bounds& bounds = drawCache(*item.frame).bounds();
    if (bounds.empty) {
        return;
    }
    const std::array<Vec3, 8> corners = boxCorners(bounds);
    const auto loop = [&corners](std::initializer_list<std::size_t> numbers) {
        glBegin(GL_LINE_LOOP);
        for (const std::size_t number : numbers) {
            glVertex3f(corners[number].x, corners[number].y, corners[number].z);
        }
        glEnd();
    };
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    setColor(wireColor(context.state.colors, item.frame->SelectState));
    loop({0, 1, 3, 2});
    loop({4, 5, 7, 6});
    for (const std::size_t corner : {0U, 1U, 2U, 3U}) {
        loop({corner, corner + 4});
    }
    glEnable(GL_LIGHTING);
}

} // namespace

void GlView::setUp(const ModelDocument& document, ViewState& state) {
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    const GLfloat noAmbient[] = {0.0F, 0.0F, 0.0F, 1.0F};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, noAmbient);
    glLightModelf(GL_LIGHT_MODEL_TWO_SIDE, 1.0F);
    setLight(state);
    const GLfloat white[] = {1.0F, 1.0F, 1.0F, 1.0F};
    glLightfv(GL_LIGHT0, GL_AMBIENT, white);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
    glLightfv(GL_LIGHT0, GL_SPECULAR, white);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_COLOR_MATERIAL);
    // deliberate: the current colour is the highlight's
    glColorMaterial(GL_FRONT_AND_BACK, GL_SPECULAR);
    glEnable(GL_NORMALIZE); // frames may scale
    glEnable(GL_TEXTURE_2D);
    glTexEnvf(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    counts_.uploads += textures_.update(document.Materials);
    glReadBuffer(GL_COLOR_ATTACHMENT0);
    applyMode(state);
}

void GlView::resize(std::int32_t width, std::int32_t height) {
    geometry_ = ViewGeometry(width, height);
}

void GlView::setProjection(float scale) const {
    glViewport(0, 0, geometry_.width, geometry_.height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(60.0, static_cast<double>(geometry_.width) / geometry_.height,
                   ViewGeometry::nearZ, ViewGeometry::farZ);
    glScalef(scale, scale, scale);
}

void GlView::redraw(ModelDocument& document, ViewState& state) {
    setProjection(state.scaleFactor);
    if (state.lastDrawnMode != state.mode) {
        applyMode(state);
    }
    counts_.uploads += textures_.update(document.Materials);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    setLight(state);
    const Camera camera(state.angles, document.CameraDistance, document.CameraCenter,
                        state.scaleFactor);
    const DrawContext context = {geometry_, state, camera};
    list_.rebuild(document.Root);
    materials_.take(document.Materials, state);
    drawPass(context, document, false);
    if (state.mode == RenderMode::SmoothShading && state.allowTransparent) {
        drawPass(context, document, true);
    }
    if (state.mode != RenderMode::Wireframe) {
        drawSelection(context, document);
    }
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        lists_.keep(walk.frame()); // a hidden or culled frame may come back unchanged
    }
    lists_.sweep();
    checkErrors();
}

void GlView::drawPass(const DrawContext& context, const ModelDocument& document, bool translucent) {
    if (context.state.mode == RenderMode::SmoothShading) {
        // the opaque pass ignores the alpha of textures
        setEnabled(GL_BLEND, translucent);
    }
    for (const DrawItem& item : list_.items()) {
        FrameRecord& frame = *item.frame;
        if (!frame.HasMesh) {
            continue;
        }
        refreshedCache(frame, item.world);
        if (containment(context, item) == Containment::Outside) {
            continue;
        }
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixf(modelView(context, item.world, document).m.data());
        drawFrame(context, item, translucent);
    }
}

void GlView::drawSelection(const DrawContext& context, const ModelDocument& document) {
    setEnabled(GL_BLEND, false);
    glDepthMask(GL_FALSE);
    for (const DrawItem& item : list_.items()) {
        if (item.frame->HasMesh && item.frame->SelectState == SelectState::Selected) {
            glMatrixMode(GL_MODELVIEW);
            glLoadMatrixf(modelView(context, item.world, document).m.data());
            drawBox(context, item);
        }
    }
    glDepthMask(GL_TRUE);
}

/// In debug builds, counts and logs the errors of a redraw.
void GlView::checkErrors() {
#ifndef NDEBUG
    constexpr int most = 16; // a lost context reports errors without end
    for (int i = 0; i < most; ++i) {
        const GLenum error = glGetError();
        if (error == GL_NO_ERROR) {
            break;
        }
        ++counts_.errors;
        qWarning("OpenGL error %#x", error);
    }
#endif
}

void GlView::drawFrame(const DrawContext& context, const DrawItem& item, bool translucentPass) {
    const ViewState& state = context.state;
    const bool wires = state.mode == RenderMode::Wireframe;
    const bool mirrored = mirrors(item.world);
    if (mirrored) {
        glFrontFace(GL_CW); // mirroring reverses the corners on the screen
    }
    materials_.select(item.frame->Mesh);
    glDepthMask(GL_TRUE);
    if (wires) {
        setColor(wireColor(state.colors, item.frame->SelectState));
        ++counts_.meshes;
        counts_.recorded += lists_.drawWires(*item.frame, state.dots);
    } else if (!translucentPass && materials_.any(false)) {
        drawFaces(*item.frame, false);
    }
    glDepthMask(GL_FALSE);
    if (translucentPass && materials_.any(true)) {
        // depths stay unwritten: faces behind a translucent one show whatever the order
        glEnable(GL_CULL_FACE);
        if (state.showHiddenTransparent || item.frame->RenderBackwards) {
            // far sides first, so that they are not blended over the near ones
            glCullFace(GL_FRONT);
            drawFaces(*item.frame, true);
        }
        glCullFace(GL_BACK);
        drawFaces(*item.frame, true);
        glDisable(GL_CULL_FACE);
    }
    glDepthMask(GL_TRUE);
    if (mirrored) {
        glFrontFace(GL_CCW);
    }
}

void GlView::drawFaces(FrameRecord& frame, bool translucent) {
    ++counts_.meshes;
    counts_.recorded +=
        lists_.drawFaces(frame, drawCache(frame), materials_, textures_, translucent);
}

} // namespace korvane
