#include "render/scene/DrawCache.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace korvane {

namespace {

/// The matrix for normals: the inverse transpose of the upper 3 x 3 up to a positive factor, which
/// exists even for a singular matrix.
struct NormalMatrix {
    explicit NormalMatrix(const Matrix4& m) {
        const auto minor = [&m](std::size_t a, std::size_t b, std::size_t c, std::size_t d) {
            return double{m[a]} * m[d] - double{m[b]} * m[c];
        };
        cofactors = {minor(5, 6, 9, 10),  -minor(4, 6, 8, 10), minor(4, 5, 8, 9),
                     -minor(1, 2, 9, 10), minor(0, 2, 8, 10),  -minor(0, 1, 8, 9),
                     minor(1, 2, 5, 6),   -minor(0, 2, 4, 6),  minor(0, 1, 4, 5)};
        // the factor is free: keep extreme matrices within range
        double largest = 0.0;
        for (const double c : cofactors) {
            largest = std::max(largest, std::abs(c));
        }
        const double factor = (mirrors(m) ? -1.0 : 1.0) / (largest > 0 ? largest : 1.0);
        for (double& c : cofactors) {
            c *= factor;
        }
    }
    /// The unit normal, zero where there is none.
    [[nodiscard]] Vec3 turned(const Vec3& n) const {
        const double x = n.x * cofactors[0] + n.y * cofactors[3] + n.z * cofactors[6];
        const double y = n.x * cofactors[1] + n.y * cofactors[4] + n.z * cofactors[7];
        const double z = n.x * cofactors[2] + n.y * cofactors[5] + n.z * cofactors[8];
        return unitVector(x, y, z);
    }

    std::array<double, 9> cofactors{};
};

} // namespace

Vec3 polygonNormal(std::span<const std::uint32_t> corners, std::span<const Vec3> vertices) {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const std::size_t from = corners[i];
        const std::size_t to = corners[i + 1 == corners.size() ? 0 : i + 1];
        if (from >= vertices.size() || to >= vertices.size()) {
            return {};
        }
        const Vec3& a = vertices[from];
        const Vec3& b = vertices[to];
        x += (double{a.y} - b.y) * (double{a.z} + b.z);
        y += (double{a.z} - b.z) * (double{a.x} + b.x);
        z += (double{a.x} - b.x) * (double{a.y} + b.y);
    }
    return unitVector(x, y, z);
}

bool usableNormal(const Vec3& normal) {
    return isFinite(normal) && normal != Vec3{};
}

void Bounds::add(const Vec3& p) {
    if (!isFinite(p)) {
        return;
    }
    low = empty ? p : Vec3{std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
    high = empty ? p : Vec3{std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    empty = false;
}

std::array<Vec3, 8> boxCorners(const Bounds& bounds) {
    std::array<Vec3, 8> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = {(i & 1U) != 0 ? bounds.high.x : bounds.low.x,
                      (i & 2U) != 0 ? bounds.high.y : bounds.low.y,
                      (i & 4U) != 0 ? bounds.high.z : bounds.low.z};
    }
    return corners;
}

bool DrawCache::refresh(const MeshRecord& mesh, const Matrix4& world) {
    const Key key = {std::bit_cast<std::array<std::uint32_t, 16>>(world.m),
                     mesh.ListRevision.shape()};
    if (key_ == key) {
        return false;
    }
    key_ = key;
    ++buildCount_;
    bounds_ = Bounds();
    allFinite_ = true;
    WorldVertices.resize(mesh.Vertices.size());
    for (std::size_t i = 0; i < mesh.Vertices.size(); ++i) {
        bounds_.add(mesh.Vertices[i]);
        WorldVertices[i] = VectorMatrix(mesh.Vertices[i], world);
        allFinite_ = allFinite_ && isFinite(WorldVertices[i]);
    }
    buildNormals(mesh, world);
    buildFaceNormals(mesh, world);
    return true;
}

DrawCache& refreshedCache(FrameRecord& frame, const Matrix4& world) {
    DrawCache& cache = drawCache(frame);
    cache.refresh(frame.Mesh, world);
    return cache;
}

void DrawCache::buildNormals(const MeshRecord& mesh, const Matrix4& world) {
    const NormalMatrix matrix(world);
    WorldCache2.resize(mesh.HasNormals ? mesh.Normals.size() : 0);
    for (std::size_t i = 0; i < WorldCache2.size(); ++i) {
        WorldCache2[i] = matrix.turned(mesh.Normals[i]);
    }
}

void DrawCache::buildFaceNormals(const MeshRecord& mesh, const Matrix4& world) {
    const bool mirrored = mirrors(world);
    const auto hasAllNormals = [&](std::size_t face) {
        if (face >= mesh.NormalFaces.size() ||
            mesh.NormalFaces[face].size() < mesh.Faces[face].size()) {
            return false;
        }
        const auto normals = mesh.NormalFaces[face];
        return std::all_of(normals.begin(), normals.end(), [&](std::uint32_t n) {
            return n < WorldCache2.size() && usableNormal(WorldCache2[n]);
        });
    };
    WorldCache3.clear();
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        if (!hasAllNormals(face)) {
            WorldCache3.resize(mesh.Faces.size());
            const Vec3 normal = polygonNormal(mesh.Faces[face], WorldVertices);
            WorldCache3[face] = mirrored ? -normal : normal;
        }
    }
}

} // namespace korvane
