#include "render/gl/GlTextures.h"

#include "formats/textures/TexturePicture.h"
#include "render/scene/DrawMaterials.h"

#include <QImage>

#include <GL/gl.h>
#include <algorithm>

namespace korvane {

namespace {

/// Makes a texture of the image, scaled down if it is too large for the driver.
GLuint upload(const TextureImage& image) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    GLsizei width = image.width;
    GLsizei height = image.height;
    const void* pixels = image.pixels.data();
    QImage scaled;
    if (largest > 0 && (width > largest || height > largest)) {
        scaled = imageOf(image).scaled(std::min(width, largest), std::min(height, largest),
                                       Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        scaled.convertTo(QImage::Format_RGBA8888);
        width = scaled.width();
        height = scaled.height();
        pixels = scaled.constBits();
    }
    GLuint id = 0;
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels);
    return id;
}

} // namespace

std::size_t GlTextures::update(std::span<const MaterialRecord> materials) {
    for (auto& [image, entry] : entries_) {
        entry.used = false;
    }
    std::size_t uploads = 0;
    for (const MaterialRecord& material : materials) {
        if (!hasPicture(material)) {
            continue;
        }
        Entry& entry = entries_[material.TextureImage.get()];
        entry.used = true;
        if (entry.name == 0) {
            entry.image = material.TextureImage;
            entry.name = upload(*entry.image);
            ++uploads;
        }
    }
    std::erase_if(entries_, [](const auto& known) {
        const Entry& entry = known.second;
        if (!entry.used) {
            glDeleteTextures(1, &entry.name);
        }
        return !entry.used;
    });
    return uploads;
}

std::uint32_t GlTextures::name(const TextureImage* image) const {
    const auto found = entries_.find(image);
    return found != entries_.end() ? found->second.name : 0;
}

} // namespace korvane
