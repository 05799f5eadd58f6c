#include "render/gl/GlMesh.h"

#include "render/scene/DrawCache.h"

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

void applyMaterial(const GlMaterial& material) {
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, material.ambient.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, material.diffuse.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, material.emission.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, material.specular.data());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, material.shininess);
}

void bindTexture(std::uint32_t texture) {
    if (texture != 0) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, texture);
    } else {
        glDisable(GL_TEXTURE_2D);
    }
}

/// Emits the faces of one mesh as triangle fans.
class FanEmitter {
  public:
    FanEmitter(const FrameRecord& frame, const DrawCache& cache)
        : mesh_(frame.Mesh), cornersHaveNormals_(cache.WorldCache3.empty()) {}

    void emit(std::size_t face, const GlMaterial& material, bool& textureOn) const {
        const auto corners = mesh_.Faces[face];
        const auto coordinates = material.texture != 0 ? texturePlaces(face, corners.size())
                                                       : std::span<const std::uint32_t>();
        if (material.texture != 0 && textureOn == coordinates.empty()) {
            textureOn = !coordinates.empty();
            bindTexture(textureOn ? material.texture : 0);
        }
        const auto normals = face < mesh_.NormalFaces.size() && mesh_.HasNormals
                                 ? mesh_.NormalFaces[face]
                                 : std::span<const std::uint32_t>();
        const Vec3 faceNormal =
            cornersHaveNormals_ ? Vec3() : polygonNormal(corners, mesh_.Vertices);
        glBegin(GL_TRIANGLE_FAN);
        for (std::size_t k = 0; k < corners.size(); ++k) {
            const bool own = k < normals.size() && normals[k] < mesh_.Normals.size() &&
                             usableNormal(mesh_.Normals[normals[k]]);
            const Vec3& normal = own ? mesh_.Normals[normals[k]] : faceNormal;
            const Vec2 at = coordinates.empty() ? Vec2() : mesh_.TexCoords[coordinates[k]];
            const Vec3& p = mesh_.Vertices[corners[k]];
            glNormal3f(normal.x, normal.y, normal.z);
            glTexCoord2f(at.u, 1.0F - at.v); // row 0 of a texture is its top
            glColor4f(material.specular[0], material.specular[1], material.specular[2], 1.0F);
            glVertex3f(p.x, p.y, p.z);
        }
        glEnd();
    }

  private:
    [[nodiscard]] std::span<const std::uint32_t> texturePlaces(std::size_t face,
                                                               std::size_t corners) const {
        const auto places = textureCorners(mesh_, face, corners);
        const bool finite = std::all_of(places.begin(), places.end(), [this](std::uint32_t at) {
            const Vec2& place = mesh_.TexCoords[at];
            return std::isfinite(place.u) && std::isfinite(place.v);
        });
        return finite ? places : std::span<const std::uint32_t>();
    }

    const MeshRecord& mesh_;
    bool cornersHaveNormals_;
};

void emitFaces(const FrameRecord& frame, const DrawCache& cache, bool translucent,
               const DrawMaterials& slots, const std::vector<GlMaterial>& materials) {
    const MeshRecord& mesh = frame.Mesh;
    // the faces by slot, in their order within each
    std::vector<std::vector<std::uint32_t>> facesOf(materials.size());
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        const std::size_t slot = slots.slot(mesh, face);
        if (materials[slot].translucent == translucent && mesh.Faces[face].size() >= 3 &&
            drawable(mesh.Faces[face], mesh.Vertices)) {
            facesOf[slot].push_back(static_cast<std::uint32_t>(face));
        }
    }
    const FanEmitter emitter(frame, cache);
    for (std::size_t slot = 0; slot < materials.size(); ++slot) {
        if (facesOf[slot].empty()) {
            continue;
        }
        const GlMaterial& material = materials[slot];
        bindTexture(material.texture);
        applyMaterial(material);
        bool textureOn = material.texture != 0;
        for (const std::uint32_t face : facesOf[slot]) {
            emitter.emit(face, material, textureOn);
        }
    }
}

void emitLines(const MeshRecord& mesh, GLenum primitive) {
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        const auto corners = mesh.Faces[face];
        if (!drawable(corners, mesh.Vertices)) {
            continue;
        }
        glBegin(primitive);
        for (const std::uint32_t corner : corners) {
            const Vec3& p = mesh.Vertices[corner];
            glVertex3f(p.x, p.y, p.z);
        }
        glEnd();
    }
}

} // namespace

GlMaterial::GlMaterial(const DrawMaterial& material, const GlTextures& textures)
    : ambient{material.colors.additive.red - material.colors.emissive.red,
              material.colors.additive.green - material.colors.emissive.green,
              material.colors.additive.blue - material.colors.emissive.blue, 1.0F},
      diffuse{material.colors.face.red, material.colors.face.green, material.colors.face.blue,
              material.opacity},
      emission{material.colors.emissive.red, material.colors.emissive.green,
               material.colors.emissive.blue, 1.0F},
      specular{0.0F, 0.0F, 0.0F, 1.0F},
      shininess(material.colors.power > 0 ? std::min(material.colors.power, 128.0F) : 0.0F),
      texture(textures.name(material.image)), translucent(material.translucent) {
    if (material.colors.power != 0) {
        const ColorRGB& color = material.colors.specular;
        specular = {color.red, color.green, color.blue, 1.0F};
    }
}

std::vector<GlMaterial> glMaterials(const DrawMaterials& materials, const GlTextures& textures) {
    std::vector<GlMaterial> slots;
    slots.reserve(materials.slotCount());
    for (std::size_t slot = 0; slot < materials.slotCount(); ++slot) {
        slots.emplace_back(materials[slot], textures);
    }
    return slots;
}

void emitMesh(const FrameRecord& frame, const DrawCache& cache, GlShape shape,
              const DrawMaterials& slots, const std::vector<GlMaterial>& materials) {
    switch (shape) {
    case GlShape::Opaque:
    case GlShape::Translucent:
        emitFaces(frame, cache, shape == GlShape::Translucent, slots, materials);
        break;
    case GlShape::Outlines:
        emitLines(frame.Mesh, GL_LINE_LOOP);
        break;
    case GlShape::Points:
        emitLines(frame.Mesh, GL_POINTS);
        break;
    }
}

} // namespace korvane
