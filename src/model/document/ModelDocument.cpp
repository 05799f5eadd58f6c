#include "model/document/ModelDocument.h"

#include "model/records/FrameWalk.h"

#include <cstdint>
#include <span>
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

struct Range {
    float low;
    float high;

    void include(float value) {
        low = value < low ? value : low;
        high = high < value ? value : high;
    }
};

/// The box starts at the last corner of the first polygon and grows by the corners of the other
/// polygons. The first one's other corners are deliberately ignored.
void computeBounds(FrameRecord& frame) {
    const std::span<const Vec3> vertices = frame.Mesh.Vertices;
    const PolygonList& faces = frame.Mesh.Faces;
    Vec3 start;
    for (std::size_t corner = 0; !faces.empty() && corner < faces[0].size(); ++corner) {
        if (faces[0][corner] < vertices.size()) {
            start = vertices[faces[0][corner]];
        }
    }
    Range x = {start.x, start.x};
    Range y = {start.y, start.y};
    Range z = {start.z, start.z};
    for (const std::uint32_t index : faces.cornersFrom(1)) {
        if (index < vertices.size()) {
            const Vec3& v = vertices[index];
            x.include(v.x);
            y.include(v.y);
            z.include(v.z);
        }
    }
    frame.BoundMin = {x.low, y.low, z.low};
    frame.BoundMax = {x.high, y.high, z.high};
}

void computeFrameData(FrameRecord& frame, FramePath path) {
    ModelDocument::computeMeshData(frame);
    frame.PathDepth = static_cast<std::int32_t>(path.depth());
    frame.Path = std::move(path);
}

} // namespace

void ModelDocument::computeMeshData(FrameRecord& frame) {
    computeFaceNormals(frame.Mesh);
    computeBounds(frame);
}

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

FrameRecord* ModelDocument::selectedFrame() {
    return Selected.Frame ? frameAt(Root, *Selected.Frame) : nullptr;
}

const FrameRecord* ModelDocument::selectedFrame() const {
    return Selected.Frame ? frameAt(Root, *Selected.Frame) : nullptr;
}

void ModelDocument::selectFrame(const FramePath& path) {
    Selected = {.Frame = path,
                .CanAdd = true,
                .CanDelete = path.depth() > 0,
                .CanEdit = true,
                .AddByKind = true,
                .NodeKind = NodeKind::Frame};
    SelectionCopy = Selected;
    Cursor.CursorPath = path.childNumbers();
    Cursor.CursorDepth = static_cast<std::int32_t>(path.depth());
    Cursor.CursorPath.push_back(0);
    markSelection(path);
}

void ModelDocument::markSelection(const FramePath& path) {
    for (FrameWalk walk(Root); !walk.done(); walk.next()) {
        walk.frame().SelectState = SelectState::Other;
    }
    FrameRecord* selected = frameAt(Root, path);
    if (selected == nullptr) {
        return;
    }
    for (FrameWalk walk(*selected); !walk.done(); walk.next()) {
        walk.frame().SelectState = SelectState::Descendant;
    }
    selected->SelectState = SelectState::Selected;
}

} // namespace korvane
