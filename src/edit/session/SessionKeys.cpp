// The keyboard in the views, and picking.

#include "edit/history/StructureEdits.h"
#include "edit/session/DocumentSession.h"
#include "render/picking/FramePicking.h"
#include "render/scene/SelectedFrame.h"
#include "render/scene/StartCamera.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

constexpr int spaceView = planeCount; // the numbers below are the planes

/// The angles after an arrow key, which turns in the direction of a drag.
CameraAngles turnedBy(CameraAngles angles, ViewKey arrow) {
    constexpr float step = viewPi / 36; // five degrees
    const KeyWay way = keyWay(arrow);
    angles.yaw -= static_cast<float>(way.right) * step;
    angles.pitch =
        std::clamp(angles.pitch - static_cast<float>(way.up) * step, -viewPi / 2, viewPi / 2);
    return angles;
}

} // namespace

Changes DocumentSession::followPointer() {
    return pointer_ ? setText(pointerText_, pointerText(mappingOf(*pointer_), pointer_->mouse,
                                                        std::nullopt, model_.Tool))
                    : Changes();
}

Changes DocumentSession::keyPlane(const PlaneInput& view, ViewKey key) {
    if (!acceptsEdits()) {
        return {};
    }
    const PlaneMapping mapping = mappingOf(view);
    const bool ofFrame = model_.Tool == ViewTool::MoveFrame || model_.Tool == ViewTool::RotateFrame;
    if (isArrow(key) && ofFrame) {
        return keyFrame(mapping, key) | takeOverdue();
    }
    endKeys();
    StaleViews stale = {.planes = true};
    switch (key) {
    case ViewKey::ZoomIn:
    case ViewKey::ZoomOut: {
        const DragInput middle = {
            {}, static_cast<float>(mapping.centreX), static_cast<float>(mapping.centreY)};
        stale.planes = zoomPlanes(middle, key == ViewKey::ZoomIn ? 1.0F : -1.0F, mapping, model_);
        break;
    }
    case ViewKey::ShowModel:
    case ViewKey::ShowFrame:
        startPlanes(model_, view.width, view.height,
                    key == ViewKey::ShowModel ? Seen::Model : Seen::Selection);
        break;
    default:
        stale = stepView(mapping, key, model_);
    }
    return followPointer() | changesOf(stale) | takeOverdue();
}

Changes DocumentSession::keyFrame(const PlaneMapping& mapping, ViewKey arrow) {
    const SelectedFrame found = findSelectedFrame(model_.Root);
    const bool continues = keys_ && keys_->revision == model_.Revision &&
                           keys_->run.continues(mapping, model_.Tool, found.path);
    // if this throws, `keys_` stays empty and the next key starts a new run
    std::optional<Keys> keys = std::exchange(keys_, std::nullopt);
    if (!continues) {
        const Matrix4& matrix = found.frame->Matrix;
        keys = {KeyRun(mapping, model_.Tool, {found.path, matrix, matrix}), model_.Modified,
                model_.Revision, model_.Revision};
    }
    const bool recorded = keys->revision != keys->startRevision;
    if (!keys->run.press(arrow)) {
        keys_ = std::move(keys);
        return {};
    }
    if (recorded) {
        history_.revoke(model_);
    }
    const FrameMove& move = keys->run.move();
    if (keys->run.moves()) {
        record(move);
    } else if (recorded) { // back to the state before the run
        model_.Modified = keys->modified;
        model_.Revision = keys->startRevision;
        ++model_.LiveChanges;
    }
    keys->revision = model_.Revision;
    const Changes told = setText(message_, movedText(mapping, keys->run.progress()));
    keys_ = std::move(keys);
    return told | Changes{.geometry = true};
}

Changes DocumentSession::keyOrbit(const ViewGeometry& geometry, ViewKey key) {
    if (orbit_.active()) {
        return {};
    }
    endKeys();
    switch (key) {
    case ViewKey::ZoomIn:
        return wheelOrbit(1.0F);
    case ViewKey::ZoomOut:
        return wheelOrbit(-1.0F);
    case ViewKey::ShowModel:
    case ViewKey::ShowFrame: {
        const Vec3 centre = model_.CameraCenter;
        startCamera(model_, view_, geometry,
                    key == ViewKey::ShowModel ? Seen::Model : Seen::Selection);
        // the 2D views mark the camera centre
        return {.camera = true, .planes = model_.CameraCenter != centre};
    }
    default:
        return lookAlong(turnedBy(view_.angles, key));
    }
}

Changes DocumentSession::lookAlong(const CameraAngles& angles) {
    if (orbit_.active() || angles == view_.angles) {
        return {};
    }
    endKeys();
    view_.angles = angles;
    return {.camera = true};
}

Changes
DocumentSession::pick(const PickSpot& spot,
                      const std::function<std::vector<FramePath>(const PickSpot&)>& framesAt) {
    if (!acceptsEdits() || orbit_.active()) {
        return {};
    }
    endKeys();
    const NodeData before = model_.Selected;
    const auto frame = picks_.next(framesAt(picks_.settle(spot)), before.Frame);
    if (!frame) {
        return {};
    }
    model_.selectFrame(*frame);
    settleSelection();
    return Changes{.geometry = before.Frame != frame, .selection = true} | takeOverdue();
}

Changes DocumentSession::pickPlane(const PlaneInput& input) {
    return pick({static_cast<int>(input.plane), input.mouse.x, input.mouse.y},
                [&](const PickSpot& spot) {
                    return framesInPlane(model_, mappingOf(input), spot.x, spot.y);
                });
}

Changes DocumentSession::pickSpace(const DragInput& input, const ViewGeometry& geometry) {
    return pick({spaceView, input.x, input.y}, [&](const PickSpot& spot) {
        return framesInSpace(model_, view_, geometry, spot.x, spot.y);
    });
}

} // namespace korvane
