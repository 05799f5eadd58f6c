#include "render/picking/FramePicking.h"

#include "render/picking/PointerSpace.h"
#include "render/scene/Camera.h"
#include "render/scene/DrawCache.h"
#include "render/scene/DrawList.h"
#include "render/scene/DrawMaterials.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvane {

namespace {

/// A picked frame with the value to sort by, the least first.
struct Found {
    double rank;
    FramePath frame;
};

std::vector<FramePath> inOrder(std::vector<Found> found) {
    std::stable_sort(found.begin(), found.end(),
                     [](const Found& a, const Found& b) { return a.rank < b.rank; });
    std::vector<FramePath> frames;
    frames.reserve(found.size());
    for (Found& one : found) {
        frames.push_back(std::move(one.frame));
    }
    return frames;
}

/// The least value of `of` over the face numbers of a mesh.
template <class Of>
std::optional<double> leastOf(const PolygonList& faces, const Of& of) {
    std::optional<double> least;
    for (std::size_t face = 0; face < faces.size(); ++face) {
        if (const std::optional<double> value = of(face)) {
            least = std::min(least.value_or(*value), *value);
        }
    }
    return least;
}

/// Finds frames in one walk. `collect` puts a frame's vertices in world space into a pointer space;
/// `rank` then returns the frame's rank, or nothing if the pointer misses it.
template <class Collect, class Rank>
std::vector<FramePath> findFrames(ModelDocument& document, const Collect& collect, Rank rank) {
    DrawList list;
    list.rebuild(document.Root);
    std::vector<Found> found;
    for (const DrawItem& item : list.items()) {
        if (!item.frame->HasMesh || item.frame->Mesh.Faces.empty()) {
            continue;
        }
        collect(refreshedCache(*item.frame, item.world).WorldVertices);
        if (const std::optional<double> ranked = rank(item)) {
            found.push_back({*ranked, item.frame->Path});
        }
    }
    return inOrder(std::move(found));
}

/// Ranks a frame by the distance to its nearest line.
auto byLines(const PointerSpace& space) {
    return [&space](const DrawItem& item) {
        const PolygonList& faces = item.frame->Mesh.Faces;
        return leastOf(faces, [&](std::size_t face) { return space.lineDistance(faces[face]); });
    };
}

/// Ranks a frame by the depth of its nearest face under the pointer.
class ByDepth {
  public:
    ByDepth(const PointerSpace& space, const ModelDocument& document, const ViewState& state)
        : space_(space), state_(state) {
        materials_.take(document.Materials, state);
    }

    std::optional<double> operator()(const DrawItem& item) {
        const MeshRecord& mesh = item.frame->Mesh;
        materials_.select(mesh);
        const int front = mirrors(item.world) ? 1 : -1;
        return leastOf(mesh.Faces, [&](std::size_t face) -> std::optional<double> {
            const auto corners = mesh.Faces[face];
            if (!space_.reaches(corners)) {
                return std::nullopt;
            }
            const DrawMaterial& material = materials_[materials_.slot(mesh, face)];
            if (material.opacity == 0.0F) {
                return std::nullopt;
            }
            const bool both = item.frame->RenderBackwards ||
                              (material.translucent && state_.showHiddenTransparent);
            return space_.depthUnder(corners, both ? 0 : front);
        });
    }

  private:
    const PointerSpace& space_;
    const ViewState& state_;
    DrawMaterials materials_;
};

} // namespace

std::vector<FramePath> framesInSpace(ModelDocument& document, const ViewState& state,
                                     const ViewGeometry& geometry, float x, float y) {
    const bool wires = state.mode == RenderMode::Wireframe;
    PointerSpace space({ViewGeometry::nearZ, ViewGeometry::farZ},
                       wires ? static_cast<float>(pickReach) : 0.0F);
    const Camera camera(state.angles, document.CameraDistance, document.CameraCenter,
                        state.scaleFactor);
    // through the middle of the pixel
    const float right = static_cast<float>(geometry.cx) - (x + 0.5F);
    const float below = static_cast<float>(geometry.cy) - (y + 0.5F);
    const auto collect = [&](const std::vector<Vec3>& vertices) {
        space.clear(vertices.size());
        for (const Vec3& vertex : vertices) {
            const FloatLanes view = camera.toViewLanes(vertex);
            space.add(geometry.f * view[0] - right * view[2],
                      geometry.f * view[1] - below * view[2], view[2]);
        }
    };
    return wires ? findFrames(document, collect, byLines(space))
                 : findFrames(document, collect, ByDepth(space, document, state));
}

std::vector<FramePath> framesInPlane(ModelDocument& document, const PlaneMapping& mapping, float x,
                                     float y) {
    constexpr float depth = 1.0F; // the same for all points
    PointerSpace space({depth, depth}, static_cast<float>(pickReach));
    const auto collect = [&](const std::vector<Vec3>& vertices) {
        space.clear(vertices.size());
        for (const Vec3& vertex : vertices) {
            const PlanePoint at = toPlane(mapping.plane, vertex);
            space.add(static_cast<float>(double{x} - mapping.screenX(at.u)),
                      static_cast<float>(double{y} - mapping.screenY(at.v)), depth);
        }
    };
    return findFrames(document, collect, byLines(space));
}

} // namespace korvane
