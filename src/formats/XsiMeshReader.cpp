#include "formats/XsiMeshReader.h"

#include "formats/ListReading.h"

#include <array>

namespace korvane {

namespace {

// The numbers of one list element, in file order.
std::array<float*, 3> components(Vec3& v) {
    return {&v.x, &v.y, &v.z};
}
std::array<float*, 2> components(Vec2& v) {
    return {&v.u, &v.v};
}
std::array<float*, 4> components(ColorRGBA& c) {
    return {&c.red, &c.green, &c.blue, &c.alpha};
}

} // namespace

XsiMeshReader::XsiMeshReader(LineReader& lines, std::vector<MaterialRecord>& table)
    : lines_(lines), materials_(lines, table), copiesLeft_(lines.numbers().remaining()) {}

void XsiMeshReader::read(FrameRecord& frame) {
    frame.HasMesh = true;
    MeshRecord& mesh = frame.Mesh;
    if (!readGeometry(mesh)) {
        return;
    }
    // Every block read here ends with its closing line, which the mesh does not count.
    int depth = 1;
    while (depth > 0 && lines_.next()) {
        if (lines_.holds("meshmateriallist")) {
            materials_.readList(frame);
        } else if (lines_.holds("meshnormals")) {
            mesh.HasNormals = true;
            readElements(mesh.Normals) && readCornerLists(mesh.NormalFaces);
            lines_.skipToClosingBrace();
        } else if (lines_.holds("si_meshtexturecoords")) {
            mesh.HasTexCoords = true;
            readElements(mesh.TexCoords) && readCornerLists(mesh.TexCoordFaces);
            lines_.skipToClosingBrace();
        } else if (lines_.holds("meshtexturecoords")) {
            mesh.HasTexCoords = true;
            readDirectXTexCoords(mesh);
            lines_.skipToClosingBrace();
        } else if (lines_.holds("si_meshvertexcolors")) {
            mesh.HasVertexColors = true;
            readElements(mesh.VertexColors) && readCornerLists(mesh.VertexColorFaces);
            lines_.skipToClosingBrace();
        } else {
            lines_.count(depth);
        }
    }
}

bool XsiMeshReader::readGeometry(MeshRecord& mesh) {
    return readElements(mesh.Vertices) && readFaces(mesh.Faces);
}

/// Makes room for the announced polygons, taken to have four corners at the most.
void XsiMeshReader::makeRoom(PolygonList& polygons, std::int32_t announced) {
    const std::size_t bytes = lines_.numbers().remaining();
    const std::size_t count = credible(announced, bytes / 3);
    polygons.reserveMore(count, std::min(4 * count, bytes / 2));
}

/// A count and that many corner lists, each with one more separator behind it.
bool XsiMeshReader::readFaces(PolygonList& faces) {
    TextScanner& in = lines_.numbers();
    std::int32_t count = 0;
    if (!(in.separator() && in.integer(count) && in.separator())) {
        return false;
    }
    makeRoom(faces, count);
    for (std::int32_t i = 0; i < count; ++i) {
        std::int32_t corners = 0;
        if (!(in.integer(corners) && in.separator() && readCorners(faces, corners))) {
            return false;
        }
        in.separator();
    }
    return true;
}

/// DirectX counts v downward and gives one pair for each vertex: the faces serve for both lists.
void XsiMeshReader::readDirectXTexCoords(MeshRecord& mesh) {
    const std::size_t first = mesh.TexCoords.size();
    const bool complete = readElements(mesh.TexCoords);
    for (std::size_t i = first; i < mesh.TexCoords.size(); ++i) {
        mesh.TexCoords[i].v = 1.0F - mesh.TexCoords[i].v;
    }
    for (std::size_t i = 0; complete && i < mesh.Faces.size(); ++i) {
        const auto face = mesh.Faces[i];
        if (face.size() + 1 > copiesLeft_) {
            copiesLeft_ = 0;
            return;
        }
        copiesLeft_ -= face.size() + 1;
        mesh.TexCoordFaces.push_back(face);
    }
}

/// A count and that many elements, each number with a separator before it and one behind the last.
template <class Element>
bool XsiMeshReader::readElements(std::vector<Element>& list) {
    TextScanner& in = lines_.numbers();
    std::int32_t count = 0;
    if (!in.integer(count)) {
        return false;
    }
    constexpr std::size_t leastBytes = 2 * (sizeof(Element) / sizeof(float)) + 1;
    reserveMore(list, credible(count, in.remaining() / leastBytes));
    for (std::int32_t i = 0; i < count; ++i) {
        Element element;
        for (float* component : components(element)) {
            if (!(in.separator() && in.real(*component))) {
                return false;
            }
        }
        list.push_back(element);
        in.separator();
    }
    return true;
}

/// That many indices, each with a separator behind it, as one polygon.
bool XsiMeshReader::readCorners(PolygonList& polygons, std::int32_t count) {
    TextScanner& in = lines_.numbers();
    for (std::int32_t i = 0; i < count; ++i) {
        std::int32_t index = 0;
        if (!in.integer(index)) {
            polygons.dropOpenPolygon();
            return false;
        }
        polygons.pushCorner(static_cast<std::uint32_t>(index));
        in.separator();
    }
    polygons.closePolygon();
    return true;
}

/// The polygons behind a list of normals, coordinates or colours. Where the first number is 0 it
/// cannot be a corner count: the polygons of this block are then numbered, and the numbers ignored.
bool XsiMeshReader::readCornerLists(PolygonList& polygons) {
    TextScanner& in = lines_.numbers();
    std::int32_t count = 0;
    if (!(in.separator() && in.integer(count))) {
        return false;
    }
    makeRoom(polygons, count);
    bool numbered = false;
    for (std::int32_t i = 0; i < count; ++i) {
        std::int32_t corners = 0;
        if (!(in.separator() && in.integer(corners) && in.separator())) {
            return false;
        }
        numbered = numbered || (i == 0 && corners == 0);
        if (numbered && !(in.integer(corners) && in.separator())) {
            return false;
        }
        if (!readCorners(polygons, corners)) {
            return false;
        }
    }
    return true;
}

} // namespace korvane
