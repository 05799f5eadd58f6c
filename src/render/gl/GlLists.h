#pragma once

#include "render/gl/GlMesh.h"

#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace korvane {

/// The display lists of a document's meshes in one OpenGL context, which is current whenever this
/// is called. Recording costs as much as several frames: a mesh is recorded once it has been drawn
/// unchanged a few times.
class GlLists {
  public:
    /// How often a mesh is drawn directly before it is recorded.
    static constexpr int drawsBeforeRecording = 3;

    /// Draws the shape of a frame's mesh, see emitMesh. Returns true if this call recorded a list.
    bool draw(const FrameRecord& frame, const DrawCache& cache, GlShape shape,
              const DrawMaterials& slots, std::vector<GlMaterial> materials);
    /// Keeps what is recorded of a frame's mesh although it was not drawn.
    void keep(const FrameRecord& frame);
    /// Frees what was recorded of meshes neither drawn nor kept since the last sweep.
    void sweep();
    void release();
    [[nodiscard]] std::size_t count() const;

  private:
    /// One shape of a mesh and what it was recorded with.
    struct Shape {
        std::vector<GlMaterial> materials;
        int draws = 0;      ///< unchanged ones so far, at most one counted between sweeps
        bool drawn = false; ///< since the last sweep
        std::uint32_t list = 0;
    };
    struct Mesh {
        std::array<Shape, 4> shapes;
        bool used = false;
    };

    static void freeShape(Shape& shape);

    std::unordered_map<std::uint64_t, Mesh> meshes_; ///< by the revision of the mesh
};

} // namespace korvane
