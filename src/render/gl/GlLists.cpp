#include "render/gl/GlLists.h"

#include "model/records/FrameRecord.h"
#include "render/gl/GlMaterial.h"

#include <GL/gl.h>
#include <utility>

namespace korvane {

template <class AnyMesh, class Use>
void GlLists::forEachRun(AnyMesh& mesh, const Use& use) {
    for (auto& run : mesh.slots) {
        use(run);
    }
    use(mesh.edges);
    use(mesh.corners);
}

GlLists::Mesh& GlLists::meshOf(const FrameRecord& frame) {
    Mesh& mesh = meshes_[frame.Mesh.ListRevision.any()];
    mesh.used = true;
    return mesh;
}

const FacesBySlot& GlLists::facesOf(Mesh& mesh, const MeshRecord& record,
                                    const DrawMaterials& slots) {
    if (!mesh.faces) {
        mesh.faces.emplace(record, slots);
    }
    return *mesh.faces;
}

std::size_t GlLists::drawFaces(const FrameRecord& frame, const DrawCache& cache,
                               const DrawMaterials& slots, const GlTextures& textures,
                               bool translucent) {
    Mesh& mesh = meshOf(frame);
    if (mesh.slots.size() != slots.slotCount()) {
        for (Run& run : mesh.slots) {
            free(run);
        }
        mesh.slots.resize(slots.slotCount());
        mesh.hasFaces.clear();
        mesh.faces.reset();
        for (std::size_t slot = 0; slot < slots.slotCount(); ++slot) {
            mesh.hasFaces.push_back(!facesOf(mesh, frame.Mesh, slots)[slot].empty());
        }
    }
    std::size_t recorded = 0;
    for (std::size_t slot = 0; slot < slots.slotCount(); ++slot) {
        if (!mesh.hasFaces[slot] || slots[slot].translucent != translucent) {
            continue;
        }
        const GlMaterial material(slots[slot], textures);
        material.apply();
        Run& run = mesh.slots[slot];
        if (const bool textured = material.texture != 0; run.textured != textured) {
            free(run);
            run.textured = textured;
        }
        const bool isNew = draw(run, [&] {
            emitFaces(frame.Mesh, cache, facesOf(mesh, frame.Mesh, slots)[slot], run.textured);
        });
        recorded += isNew ? 1 : 0;
    }
    return recorded;
}

std::size_t GlLists::drawWires(const FrameRecord& frame, bool cornersOnly) {
    Mesh& mesh = meshOf(frame);
    const bool isNew = cornersOnly ? draw(mesh.corners, [&] { emitCorners(frame.Mesh); })
                                   : draw(mesh.edges, [&] { emitEdges(frame.Mesh); });
    return isNew ? 1 : 0;
}

template <class Emit>
bool GlLists::draw(Run& run, const Emit& emit) {
    if (run.list != 0) {
        glCallList(run.list);
        return false;
    }
    if (run.draws >= drawsBeforeRecording && !run.drawn) {
        run.list = glGenLists(1);
    }
    if (run.list == 0) {
        run.draws += std::exchange(run.drawn, true) ? 0 : 1;
        emit();
        return false;
    }
    glNewList(run.list, GL_COMPILE);
    emit();
    glEndList();
    if (glGetError() == GL_OUT_OF_MEMORY) {
        emit();
        free(run); // only now: emit() reads the run's `textured`
        return false;
    }
    glCallList(run.list);
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
            bool direct = false;
            forEachRun(mesh, [&](Run& run) { direct = std::exchange(run.drawn, false) || direct; });
            if (!direct) {
                mesh.faces.reset();
            }
            ++entry;
            continue;
        }
        free(mesh);
        entry = meshes_.erase(entry);
    }
}

std::size_t GlLists::count() const {
    std::size_t lists = 0;
    for (const auto& [revision, mesh] : meshes_) {
        forEachRun(mesh, [&](const Run& run) { lists += run.list != 0 ? 1 : 0; });
    }
    return lists;
}

void GlLists::free(Run& run) {
    if (run.list != 0) {
        glDeleteLists(run.list, 1);
    }
    run = Run();
}

void GlLists::free(Mesh& mesh) {
    forEachRun(mesh, [](Run& run) { free(run); });
    mesh = {.used = mesh.used};
}

} // namespace korvane
