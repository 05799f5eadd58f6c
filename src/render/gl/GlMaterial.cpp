#include "render/gl/GlMaterial.h"

#include <GL/gl.h>
#include <algorithm>

namespace korvane {

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
      texture(textures.name(material.image)) {
    if (material.colors.power != 0) {
        const ColorRGB& color = material.colors.specular;
        specular = {color.red, color.green, color.blue, 1.0F};
    }
}

void GlMaterial::apply() const {
    if (texture != 0) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, texture);
    } else {
        glDisable(GL_TEXTURE_2D);
    }
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, ambient.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, diffuse.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, emission.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, specular.data());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, shininess);
    glColor4f(specular[0], specular[1], specular[2], 1.0F);
}

} // namespace korvane
