// The settings of a document's views, and the mouse in them.

#include "edit/history/StructureEdits.h"
#include "edit/session/DocumentSession.h"
#include "edit/session/ViewSentence.h"
#include "render/scene/StartCamera.h"

#include <utility>

namespace korvane {

// Settings

Changes DocumentSession::setTool(ViewTool tool) {
    endKeys();
    model_.Tool = tool;
    return planeDrag_.active() ? Changes() : followPointer();
}

Changes DocumentSession::setRenderMode(RenderMode mode) {
    endKeys();
    view_.mode = mode;
    return {.geometry = true};
}

Changes DocumentSession::setViewSetting(bool ViewState::*setting, bool on) {
    endKeys();
    view_.*setting = on;
    return {.geometry = true};
}

Changes DocumentSession::setDrawApi(DrawApi api) {
    endKeys();
    view_.api = api;
    return {.geometry = true};
}

void DocumentSession::setVisible(bool frame, bool mesh) {
    endKeys();
    if (FrameRecord* selected = model_.selectedFrame()) {
        selected->ViewFlags[0] = frame;
        selected->ViewFlags[2] = mesh;
        tree_.markHidden(*selected);
        overdue_ = true;
    }
}

void DocumentSession::setFrameVisible(bool visible) {
    const FrameRecord* frame = model_.selectedFrame();
    setVisible(visible, visible && frame != nullptr && frame->ViewFlags[2]);
}

void DocumentSession::setMeshVisible(bool visible) {
    const FrameRecord* frame = model_.selectedFrame();
    setVisible(frame != nullptr && frame->ViewFlags[0], visible);
}

void DocumentSession::setColors(const ViewColors& colors, const PlaneColors& planeColors) {
    view_.colors = colors;
    planeColors_ = planeColors;
    if (view_.api == DrawApi::OpenGL) {
        // the view sets its background only when the mode differs from the last one drawn
        constexpr auto noMode = static_cast<RenderMode>(10);
        view_.lastDrawnMode = noMode;
    }
    overdue_ = true;
}

Changes DocumentSession::takeOverdue() {
    return {.geometry = std::exchange(overdue_, false)};
}

void DocumentSession::placeCamera(const ViewGeometry& geometry) {
    if (!std::exchange(cameraPlaced_, true)) {
        startCamera(model_, view_, geometry);
    }
}

void DocumentSession::placePlanes(std::int32_t width, std::int32_t height) {
    if (!std::exchange(planesPlaced_, true)) {
        startPlanes(model_, width, height);
    }
}

QString DocumentSession::describePlane(const PlaneInput& view) const {
    return planeSentence(model_, mappingOf(view));
}

QString DocumentSession::describeSpace() const {
    return spaceSentence(model_, view_);
}

// The mouse in the 2D views

PlaneMapping DocumentSession::mappingOf(const PlaneInput& input) const {
    return planeMapping(input.plane, input.width, input.height, model_.PlaneScale,
                        model_.PanVector);
}

Changes DocumentSession::afterPlane(const PlaneInput& input, const StaleViews& stale) {
    pointer_ = input;
    const auto progress = planeDrag_.activeIn(input.plane) ? planeDrag_.progress() : std::nullopt;
    const Changes told =
        setText(pointerText_, pointerText(mappingOf(input), input.mouse, progress, model_.Tool));
    return told | takeOverdue() | changesOf(stale);
}

Changes DocumentSession::pressPlane(const PlaneInput& input) {
    endKeys();
    if (materials_) {
        return {};
    }
    return afterPlane(input, planeDrag_.begin(input.mouse, mappingOf(input), model_));
}

Changes DocumentSession::movePlane(const PlaneInput& input) {
    return afterPlane(input, planeDrag_.update(input.mouse, mappingOf(input), model_));
}

void DocumentSession::record(const FrameMove& move) {
    try {
        recordMove(history_, model_, move.frame, move.before, move.after);
    } catch (...) {
        frameAt(model_.Root, move.frame)->Matrix = move.before; // no change without an entry
        ++model_.LiveChanges;
        overdue_ = true;
        throw;
    }
}

Changes DocumentSession::releasePlane(const PlaneInput& input) {
    const auto [stale, move] = planeDrag_.end(input.mouse, mappingOf(input), model_);
    Changes told;
    if (move) {
        record(*move);
        told = clearMessage();
    }
    return told | afterPlane(input, stale);
}

Changes DocumentSession::wheelPlane(const PlaneInput& input, float notches) {
    endKeys();
    StaleViews stale;
    if (!planeDrag_.active()) {
        stale.planes = zoomPlanes(input.mouse, notches, mappingOf(input), model_);
    }
    return afterPlane(input, stale);
}

Changes DocumentSession::leavePlane() {
    pointer_.reset();
    return setText(pointerText_, {});
}

Changes DocumentSession::cancelPlaneDrag() {
    if (!planeDrag_.active()) {
        return {};
    }
    return changesOf(planeDrag_.cancel(model_)) | followPointer() | takeOverdue();
}

// The mouse in the 3D view

Changes DocumentSession::pressOrbit(const DragInput& input) {
    endKeys();
    orbit_.begin(input, view_.angles, model_.CameraDistance);
    return {};
}

Changes DocumentSession::moveOrbit(const DragInput& input, const ViewGeometry& geometry) {
    return {.camera = orbit_.update(input, geometry, view_.angles, model_.CameraDistance)};
}

Changes DocumentSession::releaseOrbit(const DragInput& input, const ViewGeometry& geometry) {
    return {.camera = orbit_.end(input, geometry, view_.angles, model_.CameraDistance)};
}

Changes DocumentSession::wheelOrbit(float notches) {
    endKeys();
    if (orbit_.active() || notches == 0.0F) {
        return {};
    }
    model_.CameraDistance = wheelDistance(model_.CameraDistance, notches);
    return {.camera = true};
}

Changes DocumentSession::cancelOrbit() {
    return {.camera = orbit_.cancel(view_.angles, model_.CameraDistance)};
}

} // namespace korvane
