#include "model/ModelDocument.h"

#include "model/FrameWalk.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// One averaged normal per entry of NormalFaces; an index that leads nowhere adds nothing.
void computeFaceNormals(MeshRecord& mesh) {
    mesh.FaceNormals.clear();
    mesh.FaceNormals.reserve(mesh.NormalFaces.size());
    std::vector<Vec3> gathered;
    for (std::size_t i = 0; i < mesh.NormalFaces.size(); ++i) {
        gathered.clear();
        for (const std::uint32_t index : mesh.NormalFaces[i]) {
            if (index < mesh.Normals.size()) {
                gathered.push_back(mesh.Normals[index]);
            }
        }
        mesh.FaceNormals.push_back(AverageNorm(gathered));
    }
}

/// The box starts as the last corner of the first polygon alone and grows by the corners of the
/// others: the first polygon's other corners deliberately take no part.
void computeBounds(FrameRecord& frame) {
    const MeshRecord& mesh = frame.Mesh;
    frame.BoundMin = frame.BoundMax = Vec3{};
    for (std::size_t i = 0; i < mesh.Faces.size(); ++i) {
        for (const std::uint32_t index : mesh.Faces[i]) {
            if (index >= mesh.Vertices.size()) {
                continue;
            }
            const Vec3& v = mesh.Vertices[index];
            if (i == 0) {
                frame.BoundMin = frame.BoundMax = v;
                continue;
            }
            frame.BoundMin = {std::min(frame.BoundMin.x, v.x), std::min(frame.BoundMin.y, v.y),
                              std::min(frame.BoundMin.z, v.z)};
            frame.BoundMax = {std::max(frame.BoundMax.x, v.x), std::max(frame.BoundMax.y, v.y),
                              std::max(frame.BoundMax.z, v.z)};
        }
    }
}

void computeFrameData(FrameRecord& frame, FramePath path) {
    computeFaceNormals(frame.Mesh);
    computeBounds(frame);
    frame.PathDepth = static_cast<std::int32_t>(path.depth());
    frame.Path = std::move(path);
}

} // namespace

void ModelDocument::Nonfiledata(FrameRecord& frame) {
    IncRenderList();
    computeFrameData(frame, FramePath(Cursor.childNumbers()));
}

void ModelDocument::computeDerivedData() {
    for (FrameWalk walk(Root); !walk.done(); walk.next()) {
        computeFrameData(walk.frame(), walk.depth() == 0
                                           ? FramePath()
                                           : walk.parent().Path.child(walk.childNumbers().back()));
    }
}

void ModelDocument::markSelection(const FramePath& path) {
    for (FrameWalk walk(Root); !walk.done(); walk.next()) {
        walk.frame().SelectState = SelectState::Other;
    }
    FrameRecord* selected = frameAt(Root, path.childNumbers());
    if (selected == nullptr) {
        return;
    }
    for (FrameWalk walk(*selected); !walk.done(); walk.next()) {
        walk.frame().SelectState = SelectState::Descendant;
    }
    selected->SelectState = SelectState::Selected;
}

} // namespace korvane
