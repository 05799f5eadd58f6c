#pragma once

#include "model/records/FrameRecord.h"
#include "render/math/VectorMath.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

/// The bounds of points: empty until one is added. Points that are not finite are left out.
struct Bounds {
    Vec3 low;
    Vec3 high;
    bool empty = true;

    void add(const Vec3& p);
};

/// The corners of a box; bit 0, 1 and 2 of a corner's number tell whether its x, y and z are high.
std::array<Vec3, 8> boxCorners(const Bounds& bounds);

/// What drawing derives from a frame's mesh and world matrix, kept with the frame. It is built anew
/// when the matrix or the revision of the mesh changes.
class DrawCache : public ViewData {
  public:
    std::vector<Vec3> WorldVertices; ///< one position in world space per vertex
    std::vector<Vec3> WorldCache2;   ///< one unit normal in world space per normal of the mesh
    /// One unit normal in world space per face, by its shape alone, on the face's front in mirrored
    /// frames too; empty when every corner of the mesh has a normal of its own.
    std::vector<Vec3> WorldCache3;

    /// Makes the cache hold for the mesh under the world matrix. True if it had to be built.
    bool refresh(const MeshRecord& mesh, const Matrix4& world);

    /// The bounds over all vertices in the mesh's own space.
    [[nodiscard]] const Bounds& bounds() const { return bounds_; }
    /// Whether every vertex of WorldVertices is a finite point.
    [[nodiscard]] bool allFinite() const { return allFinite_; }
    /// Changes whenever the cache is built anew; what follows from it can be kept under that.
    [[nodiscard]] std::uint64_t builds() const { return builds_; }
    /// For what one way of drawing derives from this cache. Rebuilding leaves it alone: see
    /// builds().
    [[nodiscard]] ViewSlot& further() { return further_; }

  private:
    /// What a cache was built for.
    struct Key {
        std::array<std::uint32_t, 16> world; ///< the bits of the matrix: a NaN would never be equal
        std::uint64_t shape;                 ///< of the mesh's revision

        bool operator==(const Key&) const = default;
    };

    void buildNormals(const MeshRecord& mesh, const Matrix4& world);
    void buildFaceNormals(const MeshRecord& mesh, const Matrix4& world);

    std::optional<Key> key_;
    Bounds bounds_;
    bool allFinite_ = true;
    std::uint64_t builds_ = 0;
    ViewSlot further_;
};

/// The drawing cache of a frame, empty before it is first refreshed. Valid as long as the frame
/// stays where it is.
inline DrawCache& drawCache(FrameRecord& frame) {
    return frame.Views.get<DrawCache>();
}

/// Brings the frame's cache up to date under its world matrix.
DrawCache& refreshedCache(FrameRecord& frame, const Matrix4& world);

/// The unit normal of a polygon of any shape, the sum over all its edges, so that corners on one
/// line do no harm. Zero if a corner leads nowhere or there is no area.
Vec3 polygonNormal(std::span<const std::uint32_t> corners, std::span<const Vec3> vertices);

/// Whether the vector is finite and not zero, as a normal has to be.
bool usableNormal(const Vec3& normal);

} // namespace korvane
