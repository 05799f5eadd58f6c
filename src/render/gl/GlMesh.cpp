#include "render/gl/GlMesh.h"

#include "model/records/MeshRecord.h"

#include <GL/gl.h>
#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

bool drawable(std::span<const std::uint32_t> corners, const std::vector<Vec3>& vertices) {
    return std::all_of(corners.begin(), corners.end(), [&](std::uint32_t corner) {
        return corner < vertices.size() && isFinite(vertices[corner]);
    });
}

void emitVertex(const Vec3& p) {
    glVertex3f(p.x, p.y, p.z);
}

/// Emits the triangles of faces in the order given. Turns the texture off for faces without
/// coordinates.
class TriangleEmitter {
  public:
    TriangleEmitter(const MeshRecord& mesh, const DrawCache& cache, bool textured)
        : mesh_(mesh), textured_(textured), cornersHaveNormals_(cache.WorldCache3.empty()) {}

    void emit(std::span<const std::uint32_t> faces) {
        glBegin(GL_TRIANGLES);
        for (const std::uint32_t face : faces) {
            emitFace(face);
        }
        glEnd();
        useTexture(textured_);
    }

  private:
    void emitFace(std::size_t face) {
        corners_ = mesh_.Faces[face];
        coordinates_ = textured_ ? texturePlaces(face) : std::span<const std::uint32_t>();
        if (textured_ && useTexture_ == coordinates_.empty()) {
            glEnd();
            useTexture(!coordinates_.empty());
            glBegin(GL_TRIANGLES);
        }
        normals_ = face < mesh_.NormalFaces.size() && mesh_.HasNormals
                       ? mesh_.NormalFaces[face]
                       : std::span<const std::uint32_t>();
        faceNormal_ = cornersHaveNormals_ ? Vec3() : polygonNormal(corners_, mesh_.Vertices);
        for (std::size_t k = 2; k < corners_.size(); ++k) {
            emitCorner(0);
            emitCorner(k - 1);
            emitCorner(k);
        }
    }

    void emitCorner(std::size_t k) const {
        const bool own = k < normals_.size() && normals_[k] < mesh_.Normals.size() &&
                         usableNormal(mesh_.Normals[normals_[k]]);
        const Vec3& normal = own ? mesh_.Normals[normals_[k]] : faceNormal_;
        glNormal3f(normal.x, normal.y, normal.z);
        if (!coordinates_.empty()) {
            const Vec2 at = mesh_.TexCoords[coordinates_[k]];
            glTexCoord2f(at.u, 1.0F - at.v); // row 0 of a texture is its top
        }
        emitVertex(mesh_.Vertices[corners_[k]]);
    }

    void useTexture(bool on) {
        if (useTexture_ != on) {
            useTexture_ = on;
            on ? glEnable(GL_TEXTURE_2D) : glDisable(GL_TEXTURE_2D);
        }
    }

    [[nodiscard]] std::span<const std::uint32_t> texturePlaces(std::size_t face) const {
        const auto places = textureCorners(mesh_, face, corners_.size());
        const bool finite = std::all_of(places.begin(), places.end(), [this](std::uint32_t at) {
            const Vec2& place = mesh_.TexCoords[at];
            return std::isfinite(place.u) && std::isfinite(place.v);
        });
        return finite ? places : std::span<const std::uint32_t>();
    }

    const MeshRecord& mesh_;
    bool textured_;
    bool useTexture_ = textured_;
    bool cornersHaveNormals_;
    // of the current face
    std::span<const std::uint32_t> corners_;
    std::span<const std::uint32_t> coordinates_;
    std::span<const std::uint32_t> normals_;
    Vec3 faceNormal_;
};

} // namespace

FacesBySlot::FacesBySlot(const MeshRecord& mesh, const DrawMaterials& slots) {
    const auto forEachFace = [&](const auto& use) {
        for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
            if (mesh.Faces[face].size() >= 3 && drawable(mesh.Faces[face], mesh.Vertices)) {
                use(slots.slot(mesh, face), static_cast<std::uint32_t>(face));
            }
        }
    };
    std::vector<std::size_t> next(slots.slotCount() + 1);
    forEachFace([&](std::size_t slot, std::uint32_t /*face*/) { ++next[slot + 1]; });
    for (std::size_t slot = 0; slot < slots.slotCount(); ++slot) {
        next[slot + 1] += next[slot];
    }
    starts_ = next;
    faces_.resize(starts_.back());
    forEachFace([&](std::size_t slot, std::uint32_t face) { faces_[next[slot]++] = face; });
}

void emitFaces(const MeshRecord& mesh, const DrawCache& cache, std::span<const std::uint32_t> faces,
               bool textured) {
    TriangleEmitter(mesh, cache, textured).emit(faces);
}

void emitEdges(const MeshRecord& mesh) {
    glBegin(GL_LINES);
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        const auto corners = mesh.Faces[face];
        if (corners.size() < 2 || !drawable(corners, mesh.Vertices)) {
            continue;
        }
        for (std::size_t k = 0; k < corners.size(); ++k) {
            emitVertex(mesh.Vertices[corners[k]]);
            emitVertex(mesh.Vertices[corners[k + 1 < corners.size() ? k + 1 : 0]]);
        }
    }
    glEnd();
}

void emitCorners(const MeshRecord& mesh) {
    glBegin(GL_POINTS);
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        const auto corners = mesh.Faces[face];
        if (drawable(corners, mesh.Vertices)) {
            for (const std::uint32_t corner : corners) {
                emitVertex(mesh.Vertices[corner]);
            }
        }
    }
    glEnd();
}

} // namespace korvane
