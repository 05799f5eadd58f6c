#pragma once

#include <atomic>
#include <cstdint>

namespace korvane {

/// Identifies the state of a mesh's lists, so that views do not use data computed from an older
/// one. No two meshes share a number, not even copies. Comparing meshes ignores revisions.
class MeshRevision {
  public:
    MeshRevision() : shape_(next()), any_(shape_) {}
    MeshRevision(const MeshRevision& /*unused*/) : MeshRevision() {}
    MeshRevision(MeshRevision&& other) noexcept : shape_(other.shape_), any_(other.any_) {
        other.shapeChanged();
    }
    MeshRevision& operator=(const MeshRevision& /*unused*/) {
        shapeChanged();
        return *this;
    }
    MeshRevision& operator=(MeshRevision&& other) noexcept {
        shape_ = other.shape_;
        any_ = other.any_;
        other.shapeChanged();
        return *this;
    }
    ~MeshRevision() = default;
    bool operator==(const MeshRevision& /*unused*/) const { return true; }

    /// Identifies the state of vertices, faces and normals.
    [[nodiscard]] std::uint64_t shape() const { return shape_; }
    /// Identifies the state of all lists.
    [[nodiscard]] std::uint64_t any() const { return any_; }

    /// Call after changing vertices, faces, normals or the flag of the normals.
    void shapeChanged() noexcept { shape_ = any_ = next(); }
    /// Call after changing texture coordinates, slots or their flags.
    void surfaceChanged() noexcept { any_ = next(); }

  private:
    static std::uint64_t next() noexcept {
        static std::atomic<std::uint64_t> last = 0;
        return ++last;
    }

    std::uint64_t shape_;
    std::uint64_t any_;
};

} // namespace korvane
