#pragma once

#include "model/records/FrameWalk.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

inline FrameRecord named(std::string name, std::vector<FrameRecord> children = {}) {
    FrameRecord frame;
    frame.Name = std::move(name);
    frame.Children = std::move(children);
    return frame;
}

inline FramePath path(const std::vector<std::int32_t>& numbers) {
    return FramePath(numbers);
}

inline Matrix4 translation(float x, float y, float z) {
    Matrix4 matrix;
    matrix[12] = x;
    matrix[13] = y;
    matrix[14] = z;
    return matrix;
}

/// Replaces a frame's children by a chain of frames, each below the last; returns the child numbers
/// from the frame to the deepest.
inline std::vector<std::int32_t> chainBelow(FrameRecord& frame, std::size_t depth) {
    FrameRecord* deepest = &frame;
    for (std::size_t i = 0; i < depth; ++i) {
        deepest->Children.assign(1, FrameRecord());
        deepest = &deepest->Children[0];
    }
    return std::vector<std::int32_t>(depth, 1);
}

/// Replaces averaged normals that are not finite: NaN differs from itself and cannot be compared.
inline void dropOddNormals(FrameRecord& top) {
    for (FrameWalk walk(top); !walk.done(); walk.next()) {
        for (Vec3& normal : walk.frame().Mesh.FaceNormals) {
            normal = isFinite(normal) ? normal : Vec3();
        }
    }
}

} // namespace korvane::test
