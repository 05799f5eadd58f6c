#include "render/drags/PlaneDrag.h"

#include "render/drags/MovedMatrix.h"
#include "render/scene/SelectedFrame.h"

#include <cmath>
#include <utility>

namespace korvane {

namespace {

/// `place`, or `before` if that is not finite.
Vec3 finiteOr(const Vec3& before, const Vec3& place) {
    return isFinite(place) ? place : before;
}

} // namespace

StaleViews PlaneDrag::begin(const DragInput& input, PlaneMapping mapping, ModelDocument& document) {
    const bool left = input.button == DragButton::Left;
    StaleViews stale;
    if (plane_ != mapping.plane || (left && left_)) {
        stale = cancel(document); // its release never arrived
        mapping.scale = document.PlaneScale;
        mapping.pan = toPlane(mapping.plane, document.PanVector);
    }
    if (!left && input.button != DragButton::Right) {
        return stale;
    }
    if (!active()) {
        plane_ = mapping.plane;
        idleScale_ = document.PlaneScale;
        idlePan_ = document.PanVector;
        idleCentre_ = document.CameraCenter;
        progress_ = {.tool = document.Tool};
    }
    if (left) {
        pressLeft(input, mapping, document);
    }
    right_ = right_ || !left;
    if (progress_.tool == ViewTool::Zoom) {
        document.PlaneScale = zoomedScale(document.PlaneScale, left ? 2.0F : 0.5F);
        stale.planes = true;
    }
    return stale;
}

void PlaneDrag::pressLeft(const DragInput& input, const PlaneMapping& mapping,
                          ModelDocument& document) {
    left_ = true;
    start_ = input;
    startPan_ = document.PanVector;
    startCentre_ = document.CameraCenter;
    const SelectedFrame found = findSelectedFrame(document.Root);
    frame_ = found.path;
    frameMatrix_ = found.frame->Matrix;
    frameOrigin_ = toPlane(mapping.plane, VectorMatrix({}, found.world));
    startDirection_ = directionFrom(input, mapping);
}

StaleViews PlaneDrag::update(const DragInput& input, const PlaneMapping& mapping,
                             ModelDocument& document) {
    if (!left_ || plane_ != mapping.plane) {
        return {};
    }
    // at an extreme scale a few pixels may overflow in model units
    const PlanePoint way = mapping.way(start_.x, start_.y, input.x, input.y);
    if (!isFinite(toWorld(mapping.plane, way))) {
        return {};
    }
    switch (progress_.tool) {
    case ViewTool::MoveFrame:
        progress_.moved = toWorld(mapping.plane, way);
        return moveFrame(document);
    case ViewTool::MoveView:
        progress_.moved = toWorld(mapping.plane, way);
        document.PanVector = finiteOr(document.PanVector, startPan_ + progress_.moved);
        return {.planes = true};
    case ViewTool::RotateFrame:
        return rotateFrame(input, mapping, document);
    case ViewTool::MoveObjCoords:
        // against the mouse, so that the model seems to follow it in the 3D view
        progress_.moved = toWorld(mapping.plane, {-way.u, -way.v});
        document.CameraCenter = finiteOr(document.CameraCenter, startCentre_ + progress_.moved);
        return {.planes = true, .space = true};
    case ViewTool::Zoom:
        break;
    }
    return {};
}

StaleViews PlaneDrag::moveFrame(ModelDocument& document) {
    const bool moved = setFrameMatrix(document, movedMatrix(frameMatrix_, progress_.moved));
    return {.planes = moved, .space = moved};
}

StaleViews PlaneDrag::rotateFrame(const DragInput& input, const PlaneMapping& mapping,
                                  ModelDocument& document) {
    const std::optional<Direction> direction = directionFrom(input, mapping);
    if (!startDirection_) {
        startDirection_ = direction;
    }
    if (!direction) {
        return {}; // the origin has no direction: keep the last turn
    }
    const double cosine = startDirection_->u * direction->u + startDirection_->v * direction->v;
    const double sine = startDirection_->u * direction->v - startDirection_->v * direction->u;
    progress_.turned = static_cast<float>(std::atan2(sine, cosine));
    Matrix4 matrix = frameMatrix_;
    if (progress_.turned != 0.0F) {
        matrix = turnedMatrix(frameMatrix_, mapping.plane, cosine, sine);
    }
    const bool moved = setFrameMatrix(document, matrix);
    return {.planes = moved, .space = moved};
}

bool PlaneDrag::setFrameMatrix(ModelDocument& document, const Matrix4& matrix) const {
    FrameRecord* frame = frameAt(document.Root, frame_);
    // a saved file could not restore infinities and NaN
    if (frame == nullptr || !isFinite(matrix) || sameBits(frame->Matrix, matrix)) {
        return false;
    }
    frame->Matrix = matrix;
    ++document.LiveChanges;
    return true;
}

bool PlaneDrag::moves(const ModelDocument& document) const {
    const FrameRecord* frame = left_ ? frameAt(document.Root, frame_) : nullptr;
    return frame != nullptr && !sameBits(frame->Matrix, frameMatrix_);
}

std::optional<PlaneDrag::Direction> PlaneDrag::directionFrom(const DragInput& input,
                                                             const PlaneMapping& mapping) const {
    const double u = mapping.screenX(frameOrigin_.u) - double{input.x};
    const double v = double{input.y} - mapping.screenY(frameOrigin_.v);
    const double length = std::hypot(u, v);
    if (length == 0.0 || !std::isfinite(length)) {
        return std::nullopt;
    }
    return Direction{u / length, v / length};
}

DragEnd PlaneDrag::end(const DragInput& input, const PlaneMapping& mapping,
                       ModelDocument& document) {
    if (plane_ != mapping.plane) {
        return {cancel(document), std::nullopt};
    }
    DragEnd result = {update(input, mapping, document), std::nullopt};
    const bool ofFrame =
        progress_.tool == ViewTool::MoveFrame || progress_.tool == ViewTool::RotateFrame;
    const bool left = std::exchange(left_, false);
    right_ = false;
    const FrameRecord* frame = left && ofFrame ? frameAt(document.Root, frame_) : nullptr;
    if (frame != nullptr && !sameBits(frame->Matrix, frameMatrix_)) {
        result.move = {frame_, frameMatrix_, frame->Matrix};
    }
    return result;
}

StaleViews PlaneDrag::cancel(ModelDocument& document) {
    if (!active()) {
        return {};
    }
    StaleViews stale = {.planes = true, .space = document.CameraCenter != idleCentre_};
    if (left_ && setFrameMatrix(document, frameMatrix_)) {
        stale.space = true;
    }
    document.PlaneScale = idleScale_;
    document.PanVector = idlePan_;
    document.CameraCenter = idleCentre_;
    left_ = right_ = false;
    return stale;
}

std::optional<DragProgress> PlaneDrag::progress() const {
    return left_ && progress_.tool != ViewTool::Zoom ? std::optional(progress_) : std::nullopt;
}

bool zoomPlanes(const DragInput& place, float notches, PlaneMapping mapping,
                ModelDocument& document) {
    const float zoomed = zoomedScale(document.PlaneScale, wheelFactor(notches));
    if (zoomed == document.PlaneScale) {
        return false;
    }
    const PlanePoint before = mapping.under(place.x, place.y);
    mapping.scale = zoomed;
    const PlanePoint after = mapping.under(place.x, place.y);
    document.PlaneScale = zoomed;
    document.PanVector =
        document.PanVector + toWorld(mapping.plane, {after.u - before.u, after.v - before.v});
    return true;
}

} // namespace korvane
