#include "render/planes/MeshEdges.h"

#include "model/records/MeshRecord.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace korvane {

namespace {

/// Calls `use` with the vertex numbers of each edge of each face, the lower number first.
template <class Use>
void forEachLine(const MeshRecord& mesh, Use use) {
    const std::size_t vertices = mesh.Vertices.size();
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        const std::span<const std::uint32_t> corners = mesh.Faces[face];
        if (std::any_of(corners.begin(), corners.end(),
                        [&](std::uint32_t corner) { return corner >= vertices; })) {
            continue;
        }
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const std::uint32_t next = corners[i + 1 == corners.size() ? 0 : i + 1];
            use(std::min(corners[i], next), std::max(corners[i], next));
        }
    }
}

} // namespace

std::vector<MeshEdge> meshEdges(const MeshRecord& mesh) {
    // group the upper ends by the lower ones
    std::vector<std::size_t> ends(mesh.Vertices.size() + 1, 0);
    forEachLine(mesh, [&](std::uint32_t lower, std::uint32_t /*upper*/) {
        ++ends[std::size_t{lower} + 1];
    });
    for (std::size_t i = 1; i < ends.size(); ++i) {
        ends[i] += ends[i - 1];
    }
    std::vector<std::uint32_t> uppers(ends.back());
    forEachLine(mesh,
                [&](std::uint32_t lower, std::uint32_t upper) { uppers[ends[lower]++] = upper; });

    std::vector<MeshEdge> edges;
    edges.reserve(uppers.size() / 2);
    std::size_t begin = 0;
    for (std::size_t lower = 0; lower + 1 < ends.size(); ++lower) {
        const auto group = uppers.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto groupEnd = uppers.begin() + static_cast<std::ptrdiff_t>(ends[lower]);
        std::sort(group, groupEnd);
        const auto last = std::unique(group, groupEnd);
        for (auto upper = group; upper != last; ++upper) {
            edges.push_back({static_cast<std::uint32_t>(lower), *upper});
        }
        begin = ends[lower];
    }
    edges.shrink_to_fit();
    return edges;
}

} // namespace korvane
