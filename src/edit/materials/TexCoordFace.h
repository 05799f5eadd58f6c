#pragma once

#include "model/records/MeshRecord.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace korvane {

/// The number of faces that may have texture coordinates.
inline std::size_t texCoordFaceCount(const MeshRecord& mesh) {
    return mesh.HasTexCoords ? std::min(mesh.Faces.size(), mesh.TexCoordFaces.size()) : 0;
}

/// Calls the function for each vertex of the face with the number of its texture coordinate and its
/// own number, from 1. Leaves out vertices without a valid texture coordinate.
template <class Function>
void forEachTexCoordNumber(const MeshRecord& mesh, std::size_t face, Function function) {
    if (face >= texCoordFaceCount(mesh)) {
        return;
    }
    const auto numbers = mesh.TexCoordFaces[face];
    const std::size_t vertices = std::min(numbers.size(), mesh.Faces[face].size());
    for (std::size_t i = 0; i < vertices; ++i) {
        if (numbers[i] < mesh.TexCoords.size()) {
            function(numbers[i], i + 1);
        }
    }
}

/// The same with the texture coordinate itself.
template <class Function>
void forEachTexCoord(const MeshRecord& mesh, std::size_t face, Function function) {
    forEachTexCoordNumber(mesh, face, [&](std::uint32_t number, std::size_t /*vertex*/) {
        function(mesh.TexCoords[number]);
    });
}

} // namespace korvane
