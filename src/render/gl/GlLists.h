#pragma once

#include "render/gl/GlMesh.h"
#include "render/gl/GlTextures.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace korvane {

/// The display lists of a document's meshes in one OpenGL context, which must be current at each
/// call. A list holds geometry alone, so moving a frame or changing a material leaves it valid.
/// Recording costs as much as several frames, so a mesh is recorded only once it has been drawn
/// unchanged a few times.
class GlLists {
  public:
    /// How often a mesh is drawn directly before it is recorded.
    static constexpr int drawsBeforeRecording = 3;

    /// Draws either the translucent or the opaque faces of the frame's mesh, slot by slot. Returns
    /// the number of lists that this call recorded.
    std::size_t drawFaces(const FrameRecord& frame, const DrawCache& cache,
                          const DrawMaterials& slots, const GlTextures& textures, bool translucent);
    /// Draws the edges or the corners of the frame's mesh in the current colour. Returns the same.
    std::size_t drawWires(const FrameRecord& frame, bool cornersOnly);
    /// Keeps the lists of a frame's mesh that was not drawn.
    void keep(const FrameRecord& frame);
    /// Frees the lists of meshes neither drawn nor kept since the last sweep.
    void sweep();
    [[nodiscard]] std::size_t count() const;

  private:
    /// A part of a mesh that goes into one list.
    struct Run {
        bool textured = false; ///< with texture coordinates
        bool drawn = false;    ///< since the last sweep
        int draws = 0;         ///< so far, counting at most one between sweeps
        std::uint32_t list = 0;
    };
    struct Mesh {
        std::vector<Run> slots;
        std::vector<bool> hasFaces; ///< by slot
        Run edges;
        Run corners;
        std::optional<FacesBySlot> faces; ///< while they are drawn directly
        bool used = false;
    };

    template <class AnyMesh, class Use>
    static void forEachRun(AnyMesh& mesh, const Use& use);
    Mesh& meshOf(const FrameRecord& frame);
    static const FacesBySlot& facesOf(Mesh& mesh, const MeshRecord& record,
                                      const DrawMaterials& slots);
    template <class Emit>
    static bool draw(Run& run, const Emit& emit);
    static void free(Run& run);
    static void free(Mesh& mesh);

    std::unordered_map<std::uint64_t, Mesh> meshes_; ///< by the revision of the mesh
};

} // namespace korvane
