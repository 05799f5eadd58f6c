#include "model/ModelDocument.h"

#include "model/FrameWalk.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// One averaged normal per entry of NormalFaces; an index that leads nowhere adds nothing.
void computeFaceNormals(MeshRecord& mesh) {
    const std::span<const Vec3> normals = mesh.Normals;
    mesh.FaceNormals.resize(mesh.NormalFaces.size());
    for (std::size_t i = 0; i < mesh.NormalFaces.size(); ++i) {
        VectorSum sum;
        for (const std::uint32_t index : mesh.NormalFaces[i]) {
            if (index < normals.size()) {
                sum.add(normals[index]);
            }
        }
        mesh.FaceNormals[i] = Normalize(sum.rounded());
    }
}

/// The box starts as the last corner of the first polygon alone and grows by the corners of the
/// others: the first polygon's other corners deliberately take no part.
void computeBounds(FrameRecord& frame) {
    const std::span<const Vec3> vertices = frame.Mesh.Vertices;
    const PolygonList& faces = frame.Mesh.Faces;
    Vec3 low;
    Vec3 high;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        for (const std::uint32_t index : faces[i]) {
            if (index >= vertices.size()) {
                continue;
            }
            const Vec3 v = vertices[index];
            low =
                i == 0 ? v : Vec3{std::min(low.x, v.x), std::min(low.y, v.y), std::min(low.z, v.z)};
            high = i == 0
                       ? v
                       : Vec3{std::max(high.x, v.x), std::max(high.y, v.y), std::max(high.z, v.z)};
        }
    }
    frame.BoundMin = low;
    frame.BoundMax = high;
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
