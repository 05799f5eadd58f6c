#include "render/drags/PlaneDrag.h"

#include "render/scene/SelectedFrame.h"

#include <bit>
#include <cmath>

namespace korvane {

namespace {

/// Whether the matrices are the same in every bit, so that a NaN is no change.
bool same(const Matrix4& a, const Matrix4& b) {
    using Bits = std::array<std::uint32_t, 16>;
    return std::bit_cast<Bits>(a.m) == std::bit_cast<Bits>(b.m);
}

/// Where a drag leads, or the place from before where that is beyond all numbers.
Vec3 finiteOr(const Vec3& before, const Vec3& place) {
    return isFinite(place) ? place : before;
}

/// The rotation of world space that shows in the plane as one by an angle, counterclockwise.
Matrix4 planeRotation(ViewPlane plane, double cosine, double sine) {
    // the images of the axes are those of the plane's two directions, which may run backwards
    const auto c = static_cast<float>(cosine);
    const auto s = static_cast<float>(sine);
    Matrix4 rotation;
    switch (plane) {
    case ViewPlane::XY:
        rotation[0] = rotation[5] = c;
        rotation[1] = -s;
        rotation[4] = s;
        break;
    case ViewPlane::XZ:
        rotation[0] = rotation[10] = c;
        rotation[2] = -s;
        rotation[8] = s;
        break;
    case ViewPlane::ZY:
        rotation[5] = rotation[10] = c;
        rotation[6] = -s;
        rotation[9] = s;
        break;
    }
    return rotation;
}

} // namespace

void PlaneDrag::begin(const DragInput& input, const PlaneMapping& mapping,
                      ModelDocument& document) {
    const bool left = input.button == DragButton::Left;
    if (!left && input.button != DragButton::Right) {
        return;
    }
    if (left && left_) {
        cancel(document); // the release went elsewhere
    }
    if (!active()) {
        idleScale_ = document.PlaneScale;
        idlePan_ = document.PanVector;
        idleCentre_ = document.CameraCenter;
        progress_ = {.tool = document.Tool};
        document.DragRunning = true;
    }
    if (left) {
        pressLeft(input, mapping, document);
    }
    right_ = right_ || !left;
    if (progress_.tool == ViewTool::Zoom) {
        document.PlaneScale = zoomedScale(document.PlaneScale, left ? 2.0F : 0.5F);
        document.RedrawAll = true;
    }
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

void PlaneDrag::update(const DragInput& input, const PlaneMapping& mapping,
                       ModelDocument& document) {
    if (!left_) {
        return;
    }
    // at an extreme scale a few pixels may be a way beyond all numbers: nothing goes there
    const PlanePoint way = mapping.way(start_.x, start_.y, input.x, input.y);
    if (!isFinite(toWorld(mapping.plane, way))) {
        return;
    }
    switch (progress_.tool) {
    case ViewTool::MoveFrame:
        progress_.moved = toWorld(mapping.plane, way);
        moveFrame(document);
        break;
    case ViewTool::MoveView:
        progress_.moved = toWorld(mapping.plane, way);
        document.RedrawAll = true;
        document.PanVector = finiteOr(document.PanVector, startPan_ + progress_.moved);
        break;
    case ViewTool::RotateFrame:
        rotateFrame(input, mapping, document);
        break;
    case ViewTool::MoveObjCoords:
        // the other way: the model seems to follow the mouse in the 3D view
        progress_.moved = toWorld(mapping.plane, {-way.u, -way.v});
        document.CameraCenter = finiteOr(document.CameraCenter, startCentre_ + progress_.moved);
        document.RedrawAll = document.Changed = true;
        break;
    case ViewTool::Zoom:
        break;
    }
}

void PlaneDrag::moveFrame(ModelDocument& document) {
    Matrix4 matrix = frameMatrix_;
    if (progress_.moved != Vec3()) {
        matrix[12] += progress_.moved.x;
        matrix[13] += progress_.moved.y;
        matrix[14] += progress_.moved.z;
    }
    setFrameMatrix(document, matrix);
}

void PlaneDrag::rotateFrame(const DragInput& input, const PlaneMapping& mapping,
                            ModelDocument& document) {
    const std::optional<Direction> direction = directionFrom(input, mapping);
    if (!startDirection_) {
        startDirection_ = direction;
    }
    if (!direction) {
        return; // on the origin there is no angle: the frame stays as it was turned last
    }
    const double cosine = startDirection_->u * direction->u + startDirection_->v * direction->v;
    const double sine = startDirection_->u * direction->v - startDirection_->v * direction->u;
    progress_.turned = static_cast<float>(std::atan2(sine, cosine));
    Matrix4 matrix = frameMatrix_;
    if (progress_.turned != 0.0F) {
        const Matrix4 turned =
            MatrixMatrix(frameMatrix_, planeRotation(mapping.plane, cosine, sine));
        // its place is kept: the frame turns about its own origin
        std::copy_n(turned.m.begin(), 12, matrix.m.begin());
    }
    setFrameMatrix(document, matrix);
}

void PlaneDrag::setFrameMatrix(ModelDocument& document, const Matrix4& matrix) const {
    FrameRecord* frame = frameAt(document.Root, frame_);
    // a file could not give numbers back that are none
    if (frame != nullptr && isFinite(matrix) && !same(frame->Matrix, matrix)) {
        frame->Matrix = matrix;
        document.RedrawAll = document.Changed = true;
    }
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

std::optional<FrameMove> PlaneDrag::end(const DragInput& input, const PlaneMapping& mapping,
                                        ModelDocument& document) {
    if (!active()) {
        return std::nullopt;
    }
    update(input, mapping, document);
    const bool left = left_;
    left_ = right_ = false;
    document.DragRunning = false;
    const FrameRecord* frame = frameAt(document.Root, frame_);
    const bool ofFrame =
        progress_.tool == ViewTool::MoveFrame || progress_.tool == ViewTool::RotateFrame;
    if (!left || !ofFrame || frame == nullptr || same(frame->Matrix, frameMatrix_)) {
        return std::nullopt;
    }
    return FrameMove{frame_, frameMatrix_, frame->Matrix};
}

void PlaneDrag::cancel(ModelDocument& document) {
    if (!active()) {
        return;
    }
    if (left_) {
        setFrameMatrix(document, frameMatrix_);
    }
    document.Changed = document.Changed || document.CameraCenter != idleCentre_;
    document.PlaneScale = idleScale_;
    document.PanVector = idlePan_;
    document.CameraCenter = idleCentre_;
    document.RedrawAll = true;
    left_ = right_ = false;
    document.DragRunning = false;
}

std::optional<DragProgress> PlaneDrag::progress() const {
    return left_ && progress_.tool != ViewTool::Zoom ? std::optional(progress_) : std::nullopt;
}

} // namespace korvane
