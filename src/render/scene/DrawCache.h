#pragma once

#include "model/records/FrameRecord.h"
#include "render/math/VectorMath.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace korvane {

/// The bounds of points: empty until one is added. Ignores points that are not finite.
struct Bounds {
    Vec3 low;
    Vec3 high;
    bool empty = true;

    void add(const Vec3& p);
};

/// The corners of a box: bits 0, 1 and 2 of an index choose the high x, y and z.
std::array<Vec3, 8> boxCorners(const Bounds& bounds);

/// What drawing derives from a frame's mesh and world matrix, kept with the frame. refresh()
/// rebuilds it when the matrix or the mesh's shape revision has changed.
class DrawCache : public ViewData {
  public:
    std::vector<Vec3> WorldVertices; ///< one position in world space per vertex
    std::vector<Vec3> WorldCache2;   ///< one unit normal in world space per normal of the mesh
    /// One unit normal in world space per face, derived from its shape and pointing to its front in
    /// mirrored frames too; empty if every corner of the mesh has a usable normal of its own.
    std::vector<Vec3> WorldCache3;

    /// Brings the cache up to date for the mesh and world matrix. Returns true if it was rebuilt.
    bool refresh(const MeshRecord& mesh, const Matrix4& world);

    /// The bounds of all vertices in the mesh's own space.
    [[nodiscard]] const Bounds& bounds() const { return bounds_; }
    /// Whether every vertex of WorldVertices is a finite point.
    [[nodiscard]] bool allFinite() const { return allFinite_; }
    /// Changes with each rebuild, so derived data can use it as a key.
    [[nodiscard]] std::uint64_t buildCount() const { return buildCount_; }
    /// A slot for what one renderer derives from this cache. Rebuilding leaves it alone: see
    /// buildCount().
    [[nodiscard]] ViewSlot& derivedData() { return derivedData_; }

  private:
    /// The input that the cache was built from.
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
    std::uint64_t buildCount_ = 0;
    ViewSlot derivedData_;
};

/// The drawing cache of a frame, empty until first refreshed. Valid until the frame moves in
/// memory.
inline DrawCache& drawCache(FrameRecord& frame) {
    return frame.Views.get<DrawCache>();
}

/// Brings the frame's cache up to date for its world matrix and returns it.
DrawCache& refreshedCache(FrameRecord& frame, const Matrix4& world);

/// The unit normal of a polygon of any shape, summed over all its edges so that collinear corners
/// do no harm. Zero if a corner leads nowhere or the area is zero.
Vec3 polygonNormal(std::span<const std::uint32_t> corners, std::span<const Vec3> vertices);

/// Whether the vector can be a normal: finite and not zero.
bool usableNormal(const Vec3& normal);

} // namespace korvane
