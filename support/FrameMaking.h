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

/// Gives a frame a chain of frames, one below the other, for its children; the numbers that lead
/// from it to the deepest.
inline std::vector<std::int32_t> chainBelow(FrameRecord& frame, std::size_t depth) {
    FrameRecord* deepest = &frame;
    for (std::size_t i = 0; i < depth; ++i) {
        deepest->Children.assign(1, FrameRecord());
        deepest = &deepest->Children[0];
    }
    return std::vector<std::int32_t>(depth, 1);
}

/// NaN differs from itself; some averaged normals are that, and cannot be compared.
inline void dropOddNormals(FrameRecord& top) {
    for (FrameWalk walk(top); !walk.done(); walk.next()) {
        for (Vec3& normal : walk.frame().Mesh.FaceNormals) {
            normal = isFinite(normal) ? normal : Vec3();
        }
    }
}

} // namespace korvane::test
