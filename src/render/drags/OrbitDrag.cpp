#include "render/drags/OrbitDrag.h"

#include <algorithm>

namespace korvane {

void OrbitDrag::begin(const DragInput& input, const CameraAngles& angles, float distance) {
    if (!active()) {
        idleAngles_ = angles;
        idleDistance_ = distance;
    }
    start_ = input;
    startAngles_ = angles;
    startDistance_ = distance;
    rotating_ = rotating_ || input.button == DragButton::Left;
    zooming_ = zooming_ || input.button == DragButton::Right;
}

bool OrbitDrag::update(const DragInput& input, const ViewGeometry& geometry, CameraAngles& angles,
                       float& distance) const {
    if (zooming_) {
        distance = std::max((input.y - start_.y) * (100.0F / geometry.f) + startDistance_, 0.0F);
    }
    if (rotating_ && geometry.cx > 0 && geometry.cy > 0) {
        const auto cx = static_cast<float>(geometry.cx);
        const auto cy = static_cast<float>(geometry.cy);
        angles.yaw = startAngles_.yaw + (start_.x - input.x) / cx * viewPi;
        angles.pitch = std::clamp(startAngles_.pitch - (start_.y - input.y) / cy * viewPi,
                                  -viewPi / 2, viewPi / 2);
    }
    return active();
}

bool OrbitDrag::end(const DragInput& input, const ViewGeometry& geometry, CameraAngles& angles,
                    float& distance) {
    const bool changed = update(input, geometry, angles, distance);
    rotating_ = zooming_ = false;
    return changed;
}

bool OrbitDrag::cancel(CameraAngles& angles, float& distance) {
    if (!active()) {
        return false;
    }
    angles = idleAngles_;
    distance = idleDistance_;
    rotating_ = zooming_ = false;
    return true;
}

float wheelDistance(float distance, float notches) {
    constexpr float farthest = ViewGeometry::farZ;
    if (distance == 0.0F && notches >= 0.0F) {
        return distance;
    }
    // a distance of 0 cannot be scaled
    const float scaled = std::max(distance, 0.01F) * wheelFactor(-notches);
    return std::clamp(scaled, 0.0F, std::max(distance, farthest));
}

} // namespace korvane
