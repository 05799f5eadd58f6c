#pragma once

#include <atomic>
#include <cstdint>

namespace korvane {

/// Tells the states of a mesh's lists apart, so that what was worked out from one is not used for
/// another. No two meshes share a number, copies included. Revisions take no part in comparing
/// meshes.
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

    /// The number of the state of vertices, faces and normals.
    [[nodiscard]] std::uint64_t shape() const { return shape_; }
    /// The number of the state of all lists.
    [[nodiscard]] std::uint64_t any() const { return any_; }

    /// Vertices, faces or normals have changed, or whether the normals count.
    void shapeChanged() noexcept { shape_ = any_ = next(); }
    /// Texture coordinates or the slots of faces have changed, or whether they count.
    void surfaceChanged() noexcept { any_ = next(); }

  private:
    /// A number that was never given before.
    static std::uint64_t next() noexcept {
        static std::atomic<std::uint64_t> last = 0;
        return ++last;
    }

    std::uint64_t shape_;
    std::uint64_t any_;
};

} // namespace korvane
