#include "render/drags/KeyRun.h"

#include "render/drags/MovedMatrix.h"

#include <cmath>
#include <numbers>

namespace korvane {

namespace {

/// Converts a number of pixels along a key's direction to a vector in world space.
Vec3 worldWay(const PlaneMapping& mapping, const KeyWay& way, float pixels) {
    return toWorld(mapping.plane, mapping.way(0, 0, static_cast<float>(way.right) * pixels,
                                              static_cast<float>(-way.up) * pixels));
}

} // namespace

bool KeyRun::press(ViewKey arrow) {
    const KeyWay step = keyWay(arrow);
    const KeyWay way = {way_.right + step.right, way_.up + step.up};
    DragProgress progress = {.tool = tool_};
    Matrix4 matrix = move_.before;
    if (tool_ == ViewTool::MoveFrame) {
        progress.moved = worldWay(mapping_, way, 1);
        matrix = movedMatrix(matrix, progress.moved);
    } else if (const int degrees = (way.up - way.right) % 360; degrees != 0) {
        const double angle = degrees * (std::numbers::pi / 180);
        progress.turned = static_cast<float>(angle);
        matrix = turnedMatrix(matrix, mapping_.plane, std::cos(angle), std::sin(angle));
    }
    if (!isFinite(matrix) || !isFinite(progress.moved)) {
        return false;
    }
    way_ = way;
    progress_ = progress;
    move_.after = matrix;
    return true;
}

bool KeyRun::moves() const {
    return !sameBits(move_.before, move_.after);
}

StaleViews stepView(const PlaneMapping& mapping, ViewKey arrow, ModelDocument& document) {
    constexpr float panStep = 16.0F; // pixels: a single one would get nowhere
    const bool camera = document.Tool == ViewTool::MoveObjCoords;
    Vec3& place = camera ? document.CameraCenter : document.PanVector;
    // a drag moves the camera centre against the mouse, so the key does too
    const Vec3 moved = place + worldWay(mapping, keyWay(arrow), camera ? -1.0F : panStep);
    if (!isFinite(moved) || moved == place) {
        return {};
    }
    place = moved;
    return {.planes = true, .space = camera};
}

} // namespace korvane
