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

/// The edges of the mesh's faces, ordered by their lower vertex; an edge that several faces share
/// comes once. Leaves out a face with a corner that leads nowhere.
std::vector<MeshEdge> meshEdges(const MeshRecord& mesh);

} // namespace korvane
