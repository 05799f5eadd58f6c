#include "formats/xsi/XsiMeshReader.h"

#include "model/records/Color.h"
#include "model/records/MeshRecord.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

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

/// Reads a count and its elements, with a separator before each number and after each element.
template <class Element>
bool readElements(TextScanner& in, std::vector<Element>& list) {
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

/// Reserves memory for the announced polygons, assuming up to four corners each.
void makeRoom(const TextScanner& in, PolygonList& polygons, std::int32_t announced) {
    const std::size_t bytes = in.remaining();
    const std::size_t count = credible(announced, bytes / 3);
    polygons.reserveMore(count, std::min(4 * count, bytes / 2));
}

/// Reads `count` indices, each followed by a separator, as one polygon.
bool readCorners(TextScanner& in, PolygonList& polygons, std::int32_t count) {
    constexpr std::int32_t maxAtOnce = 1024; // the count may be far beyond what follows
    while (count > 0) {
        const std::int32_t some = std::min(count, maxAtOnce);
        if (!in.integers(polygons.openCorners(static_cast<std::size_t>(some)))) {
            polygons.dropOpenPolygon();
            return false;
        }
        count -= some;
    }
    polygons.closePolygon();
    return true;
}

/// Reads a count and that many corner lists, each followed by one more separator.
bool readFaces(TextScanner& in, PolygonList& faces) {
    std::int32_t count = 0;
    if (!(in.separator() && in.integer(count) && in.separator())) {
        return false;
    }
    makeRoom(in, faces, count);
    for (std::int32_t i = 0; i < count; ++i) {
        std::int32_t corners = 0;
        if (!in.integer(corners)) {
            return false;
        }
        in.separator();
        if (!readCorners(in, faces, corners)) {
            return false;
        }
        in.separator();
    }
    return true;
}

/// Reads the polygons after a list of normals, coordinates or colours. If the first number is 0, it
/// cannot be a corner count: the polygons of this block are numbered, and the numbers are ignored.
bool readCornerLists(TextScanner& in, PolygonList& polygons) {
    std::int32_t count = 0;
    if (!(in.separator() && in.integer(count))) {
        return false;
    }
    makeRoom(in, polygons, count);
    bool numbered = false;
    for (std::int32_t i = 0; i < count; ++i) {
        std::int32_t corners = 0;
        in.separator();
        if (!in.integer(corners)) {
            return false;
        }
        in.separator();
        numbered = numbered || (i == 0 && corners == 0);
        if (numbered && !in.integer(corners)) {
            return false;
        }
        if (numbered) {
            in.separator();
        }
        if (!readCorners(in, polygons, corners)) {
            return false;
        }
    }
    return true;
}

/// Reads with a copy of the scanner, which can live in registers, and then updates the original.
template <class Read>
bool readWithCopy(TextScanner& scanner, Read read) {
    TextScanner in = scanner;
    const bool complete = read(in);
    scanner = in;
    return complete;
}

} // namespace

XsiMeshReader::XsiMeshReader(LineReader& lines, std::vector<MaterialRecord>& table,
                             const TextureSource& textures)
    : lines_(lines), materials_(lines, table, textures), copiesLeft_(lines.numbers().remaining()) {}

void XsiMeshReader::read(FrameRecord& frame) {
    frame.HasMesh = true;
    lines_.note(NoteKind::Mesh);
    MeshRecord& mesh = frame.Mesh;
    const bool complete = readWithCopy(lines_.numbers(), [&mesh](TextScanner& in) {
        return readElements(in, mesh.Vertices) && readFaces(in, mesh.Faces);
    });
    lines_.note(NoteKind::ListEnd);
    // Every block read here consumes its closing line, which `depth` therefore does not count.
    int depth = 1;
    while (complete && depth > 0 && lines_.next()) {
        if (lines_.holds("meshmateriallist")) {
            materials_.readList(frame);
        } else if (lines_.holds("meshnormals")) {
            mesh.HasNormals = true;
            lines_.note(NoteKind::Normals);
            readParallelList(mesh.Normals, mesh.NormalFaces);
        } else if (lines_.holds("si_meshtexturecoords")) {
            mesh.HasTexCoords = true;
            lines_.note(NoteKind::TexCoords);
            readParallelList(mesh.TexCoords, mesh.TexCoordFaces);
        } else if (lines_.holds("meshtexturecoords")) {
            mesh.HasTexCoords = true;
            lines_.note(NoteKind::TexCoords);
            readDirectXTexCoords(mesh);
        } else if (lines_.holds("si_meshvertexcolors")) {
            mesh.HasVertexColors = true;
            lines_.note(NoteKind::VertexColors);
            readParallelList(mesh.VertexColors, mesh.VertexColorFaces);
        } else {
            lines_.countUnread(depth);
        }
    }
}

template <class Element>
void XsiMeshReader::readParallelList(std::vector<Element>& elements, PolygonList& polygons) {
    readWithCopy(lines_.numbers(), [&](TextScanner& in) {
        return readElements(in, elements) && readCornerLists(in, polygons);
    });
    lines_.note(NoteKind::ListEnd);
    lines_.skipToClosingBrace();
}

/// In DirectX, v points down, and there is one pair for each vertex: the faces index both lists.
void XsiMeshReader::readDirectXTexCoords(MeshRecord& mesh) {
    const std::size_t first = mesh.TexCoords.size();
    readWithCopy(lines_.numbers(),
                 [&mesh](TextScanner& in) { return readElements(in, mesh.TexCoords); });
    lines_.note(NoteKind::ListEnd);
    for (std::size_t i = first; i < mesh.TexCoords.size(); ++i) {
        mesh.TexCoords[i].v = 1.0F - mesh.TexCoords[i].v;
    }
    for (std::size_t i = 0; i < mesh.Faces.size(); ++i) {
        const auto face = mesh.Faces[i];
        if (face.size() + 1 > copiesLeft_) {
            copiesLeft_ = 0;
            break;
        }
        copiesLeft_ -= face.size() + 1;
        mesh.TexCoordFaces.push_back(face);
    }
    lines_.skipToClosingBrace();
}

} // namespace korvane
