#pragma once

#include <cstdint>
#include <vector>

namespace korvane {

struct MeshRecord;

/// A line between two vertices of a mesh, by their numbers.
struct MeshEdge {
    std::uint32_t from;
    std::uint32_t to;

    bool operator==(const MeshEdge&) const = default;
};

/// The lines around the mesh's faces, each pair of vertices once however many faces share it,
/// ordered by their lower vertex. A face with a corner that leads nowhere is left out.
std::vector<MeshEdge> meshEdges(const MeshRecord& mesh);

} // namespace korvane
