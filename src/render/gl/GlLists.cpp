#include "render/gl/GlLists.h"

#include <GL/gl.h>
#include <utility>

namespace korvane {

bool GlLists::draw(const FrameRecord& frame, const DrawCache& cache, GlShape shape,
                   const DrawMaterials& slots, std::vector<GlMaterial> materials) {
    Mesh& mesh = meshes_[frame.Mesh.ListRevision.any()];
    mesh.used = true;
    Shape& known = mesh.shapes[static_cast<std::size_t>(shape)];
    if (known.materials != materials) {
        freeShape(known);
        known.materials = std::move(materials);
    }
    if (known.list != 0) {
        glCallList(known.list);
        return false;
    }
    const bool record = known.draws >= drawsBeforeRecording && !known.drawn;
    if (record) {
        known.list = glGenLists(1);
    }
    if (known.list == 0) {
        known.draws += std::exchange(known.drawn, true) ? 0 : 1;
        emitMesh(frame, cache, shape, slots, known.materials);
        return false;
    }
    glNewList(known.list, GL_COMPILE);
    emitMesh(frame, cache, shape, slots, known.materials);
    glEndList();
    glCallList(known.list);
    return true;
}

void GlLists::keep(const FrameRecord& frame) {
    if (const auto found = meshes_.find(frame.Mesh.ListRevision.any()); found != meshes_.end()) {
        found->second.used = true;
    }
}

void GlLists::sweep() {
    for (auto entry = meshes_.begin(); entry != meshes_.end();) {
        Mesh& mesh = entry->second;
        if (std::exchange(mesh.used, false)) {
            for (Shape& shape : mesh.shapes) {
                shape.drawn = false;
            }
            ++entry;
            continue;
        }
        for (Shape& shape : mesh.shapes) {
            freeShape(shape);
        }
        entry = meshes_.erase(entry);
    }
}

void GlLists::release() {
    for (auto& [revision, mesh] : meshes_) {
        for (Shape& shape : mesh.shapes) {
            freeShape(shape);
        }
    }
    meshes_.clear();
}

std::size_t GlLists::count() const {
    std::size_t lists = 0;
    for (const auto& [revision, mesh] : meshes_) {
        for (const Shape& shape : mesh.shapes) {
            lists += shape.list != 0 ? 1 : 0;
        }
    }
    return lists;
}

void GlLists::freeShape(Shape& shape) {
    if (shape.list != 0) {
        glDeleteLists(shape.list, 1);
    }
    shape = Shape();
}

} // namespace korvane
