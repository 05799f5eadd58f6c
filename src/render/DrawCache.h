#pragma once

#include "render/PlaneCache.h"
#include "render/VectorMath.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

struct MeshRecord;

/// The bounds of points: empty until one is added. Points that are not finite are left out.
struct Bounds {
    Vec3 low;
    Vec3 high;
    bool empty = true;

    void add(const Vec3& p);
};

/// What drawing derives from a frame's mesh and world matrix. It belongs to the frame it was built
/// for: copies of a frame start without one, and it takes no part in comparing frames. It is built
/// anew when the matrix, the size or the place of a list changes; whoever changes elements of a
/// mesh's lists calls clear() or markMeshChanged().
class DrawCache {
  public:
    std::vector<Vec3> WorldVertices; ///< one position in world space per vertex
    std::vector<Vec3> WorldCache2;   ///< one unit normal in world space per normal of the mesh
    /// One unit normal in world space per face, by its shape alone, on the face's front in mirrored
    /// frames too; empty when every corner of the mesh has a normal of its own.
    std::vector<Vec3> WorldCache3;

    DrawCache() = default;
    DrawCache(const DrawCache& /*unused*/) {}
    DrawCache(DrawCache&&) = default;
    DrawCache& operator=(const DrawCache& other);
    DrawCache& operator=(DrawCache&&) = default;
    ~DrawCache() = default;
    bool operator==(const DrawCache& /*unused*/) const { return true; }

    /// Forgets everything; the next refresh() builds it again.
    void clear() { *this = DrawCache(); }
    /// Texture coordinates or the slots of faces have changed, which only recorded drawings depend
    /// on.
    void markMeshChanged();
    /// Makes the cache hold for the mesh under the world matrix. True if it had to be built.
    bool refresh(const MeshRecord& mesh, const Matrix4& world);

    /// The bounds over all vertices in the mesh's own space.
    [[nodiscard]] const Bounds& bounds() const { return bounds_; }
    /// Changes whenever the cache is built for other lists than before, wherever the frame stands;
    /// no two caches share one. What was made from a mesh can be kept under it.
    [[nodiscard]] std::uint64_t meshRevision() const { return meshRevision_; }
    /// Whether every vertex of WorldVertices is a finite point.
    [[nodiscard]] bool allFinite() const { return allFinite_; }
    /// What the 2D views keep beside; it forgets its points when the cache is built anew.
    [[nodiscard]] PlaneCache& planes();

  private:
    /// What a cache was built for.
    struct Key {
        std::array<std::uint32_t, 16> world; ///< the bits of the matrix: a NaN would never be equal
        std::array<std::size_t, 16> lists{}; ///< sizes and places

        bool operator==(const Key&) const = default;
    };

    void buildNormals(const MeshRecord& mesh, const Matrix4& world);
    void buildFaceNormals(const MeshRecord& mesh, const Matrix4& world);

    std::optional<Key> key_;
    Bounds bounds_;
    std::uint64_t meshRevision_ = 0;
    bool allFinite_ = true;
    std::unique_ptr<PlaneCache> planes_; ///< made when a 2D view first asks
};

/// The unit normal of a polygon of any shape, the sum over all its edges, so that corners on one
/// line do no harm. Zero if a corner leads nowhere or there is no area.
Vec3 polygonNormal(std::span<const std::uint32_t> corners, std::span<const Vec3> vertices);

/// Whether the vector is finite and not zero, as a normal has to be.
bool usableNormal(const Vec3& normal);

} // namespace korvane
