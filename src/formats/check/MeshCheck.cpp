#include "formats/check/MeshCheck.h"

#include "model/document/ModelCounts.h"
#include "model/records/FrameWalk.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

namespace korvane {

namespace {

/// Counts the wrong entries of a list and remembers the first.
struct Wrong {
    std::size_t count = 0;
    std::size_t first = 0;

    void meet(std::size_t i) { first = count++ == 0 ? i : first; }
    /// Returns text such as "Face 7 (and 3 more)".
    [[nodiscard]] std::string which(const std::string& one) const {
        return one + ' ' + std::to_string(first) + andMore(count);
    }
};

/// A list of a mesh, with the words for its elements.
struct MeshList {
    const char* one;
    const char* many;
    std::size_t size;
    const PolygonList& polygons;
    TextPlace place;
};

class MeshCheck {
  public:
    MeshCheck(const FrameRecord& frame, const FramePlaces& places, FindingList& findings)
        : mesh_(frame.Mesh), places_(places), findings_(findings),
          frame_("frame " + quoted(frame.Name)) {}

    void check() {
        const MeshRecord& m = mesh_;
        checkIndices({"vertex", "vertices", m.Vertices.size(), m.Faces, places_.mesh});
        if (m.HasNormals) {
            checkParallel({"normal", "normals", m.Normals.size(), m.NormalFaces, places_.normals});
        } else if (!m.Faces.empty() && !places_.broken) {
            findings_.add(FindingId::NoNormals, places_.mesh,
                          "The mesh of " + frame_ + " has no normals");
        }
        if (m.HasTexCoords) {
            checkParallel({"texture coordinate", "texture coordinates", m.TexCoords.size(),
                           m.TexCoordFaces, places_.texCoords});
        }
        if (m.HasVertexColors) {
            checkParallel({"vertex colour", "vertex colours", m.VertexColors.size(),
                           m.VertexColorFaces, places_.vertexColors});
        }
        if (m.HasMaterials && !places_.namedMaterials && !places_.broken) {
            checkSlots();
        }
        checkFaces();
    }

  private:
    void checkIndices(const MeshList& list);
    void checkParallel(const MeshList& list);
    void checkSlots();
    void checkFaces();
    [[nodiscard]] bool hasArea(std::span<const std::uint32_t> corners) const;

    const MeshRecord& mesh_;
    const FramePlaces& places_;
    FindingList& findings_;
    std::string frame_; ///< as findings name it
};

void MeshCheck::checkIndices(const MeshList& list) {
    Wrong wrong;
    const auto corners = list.polygons.cornersFrom(0);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (corners[i] >= list.size) {
            wrong.meet(i);
        }
    }
    if (wrong.count == 0) {
        return;
    }
    std::size_t face = 0;
    for (std::size_t end = list.polygons[0].size(); end <= wrong.first;
         end += list.polygons[face].size()) {
        ++face;
    }
    const auto index = static_cast<std::int32_t>(corners[wrong.first]);
    findings_.add(FindingId::IndexOutOfRange, list.place,
                  "Face " + std::to_string(face) + " of " + frame_ + " refers to " + list.one +
                      ' ' + std::to_string(index) + " of " + std::to_string(list.size) +
                      andMore(wrong.count));
}

/// Checks a list that must have one polygon for each face.
void MeshCheck::checkParallel(const MeshList& list) {
    checkIndices(list);
    if (!places_.broken && list.polygons.size() != mesh_.Faces.size()) {
        findings_.add(FindingId::ListsDiffer, list.place,
                      "The " + std::string(list.many) + " of " + frame_ + " cover " +
                          counted(list.polygons.size(), "face", "faces") + " instead of " +
                          std::to_string(mesh_.Faces.size()));
    }
}

void MeshCheck::checkSlots() {
    Wrong wrong;
    for (std::size_t i = 0; i < mesh_.FaceSlotIndex.size(); ++i) {
        if (static_cast<std::uint32_t>(mesh_.FaceSlotIndex[i]) >= mesh_.MaterialSlotList.size()) {
            wrong.meet(i);
        }
    }
    if (wrong.count > 0) {
        findings_.add(FindingId::IndexOutOfRange, places_.materials,
                      wrong.which("Face") + " of " + frame_ + " refers to material " +
                          std::to_string(mesh_.FaceSlotIndex[wrong.first]) + " of " +
                          std::to_string(mesh_.MaterialSlotList.size()));
    }
}

void MeshCheck::checkFaces() {
    Wrong few;
    Wrong flat;
    for (std::size_t i = 0; i < mesh_.Faces.size(); ++i) {
        const auto corners = mesh_.Faces[i];
        if (corners.size() < 3) {
            few.meet(i);
        } else if (!hasArea(corners)) {
            flat.meet(i);
        }
    }
    if (few.count > 0) {
        findings_.add(FindingId::FewCorners, places_.mesh,
                      few.which("Face") + " of " + frame_ + " has fewer than three corners");
    }
    if (flat.count > 0) {
        findings_.add(FindingId::NoArea, places_.mesh,
                      flat.which("Face") + " of " + frame_ + " has no area");
    }
}

/// The limit is relative to the squared longest distance from the first corner, so that rounding
/// gives collinear corners no area. Vertices out of range pass: checkIndices() reports them.
bool MeshCheck::hasArea(std::span<const std::uint32_t> corners) const {
    const std::vector<Vec3>& vertices = mesh_.Vertices;
    if (std::any_of(corners.begin(), corners.end(),
                    [&](std::uint32_t corner) { return corner >= vertices.size(); })) {
        return true;
    }
    const Vec3& origin = vertices[corners[0]];
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double longest = 0.0;
    double ax = 0.0;
    double ay = 0.0;
    double az = 0.0;
    for (const std::uint32_t corner : corners.subspan(1)) {
        const Vec3& v = vertices[corner];
        const double bx = double{v.x} - double{origin.x};
        const double by = double{v.y} - double{origin.y};
        const double bz = double{v.z} - double{origin.z};
        x += ay * bz - az * by;
        y += az * bx - ax * bz;
        z += ax * by - ay * bx;
        longest = std::max(longest, bx * bx + by * by + bz * bz);
        ax = bx;
        ay = by;
        az = bz;
    }
    constexpr double nothing = 1e-7;
    return x * x + y * y + z * z > (nothing * longest) * (nothing * longest);
}

} // namespace

void checkMeshes(const ModelDocument& document, const ReadPlaces& places, FindingList& findings) {
    std::size_t number = 0;
    const FramePlaces unknown;
    for (FrameWalk walk(document.Root); !walk.done(); walk.next(), ++number) {
        if (walk.frame().HasMesh) {
            MeshCheck(walk.frame(), number < places.frames.size() ? places.frames[number] : unknown,
                      findings)
                .check();
        }
    }
    for (std::size_t i = 0; i < document.Materials.size(); ++i) {
        if (document.Materials[i].FaceColor.alpha == 0.0F) {
            findings.add(FindingId::OpacityZero, places.materials[i], "A material has opacity 0");
        }
    }
}

} // namespace korvane
