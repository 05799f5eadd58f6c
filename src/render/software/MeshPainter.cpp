#include "render/software/MeshPainter.h"

#include "render/software/TextureSampler.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvane {

namespace {

/// A mesh is dense if its front faces average less than this many pixels, or most have less.
constexpr double denseFacePixels = 12.0;

/// The sum of the edge products of the triangles in the fan around the first corner: twice the
/// face's area, even with collinear corners or concave ones. `corner` returns the corner at an
/// index.
template <class Corner>
std::int64_t fanProduct(std::size_t corners, const Corner& corner) {
    const auto& first = corner(0);
    std::int64_t sum = 0;
    for (std::size_t i = 2; i < corners; ++i) {
        const auto& b = corner(i - 1);
        const auto& c = corner(i);
        sum += (std::int64_t{b.x} - first.x) * (std::int64_t{c.y} - first.y) -
               (std::int64_t{b.y} - first.y) * (std::int64_t{c.x} - first.x);
    }
    return sum;
}

/// Converts an edge product from square subpixels to square pixels.
float inPixels(std::int64_t product) {
    constexpr float unit = 1.0F / (static_cast<float>(subpixels) * subpixels);
    return static_cast<float>(product) * unit;
}

/// The box around a face's corners.
struct FaceExtent {
    /// Returns false if some corner leads nowhere.
    bool add(std::span<const std::uint32_t> corners, std::span<const ScreenVertex> screen) {
        for (const std::uint32_t corner : corners) {
            if (corner >= screen.size()) {
                return false;
            }
            const ScreenVertex& at = screen[corner];
            someOutside |= at.outside;
            allOutside &= at.outside;
            left = std::min(left, at.x);
            right = std::max(right, at.x);
            top = std::min(top, at.y);
            bottom = std::max(bottom, at.y);
        }
        return true;
    }
    /// Whether the box holds the centre of a pixel: in dense meshes many faces hold none.
    [[nodiscard]] bool holdsPixel() const {
        constexpr std::int32_t half = subpixels / 2;
        return (left + half - 1) / subpixels < (right + half) / subpixels &&
               (top + half - 1) / subpixels < (bottom + half) / subpixels;
    }

    std::uint32_t someOutside = 0;
    std::uint32_t allOutside = ~0U;
    std::int32_t left = std::numeric_limits<std::int32_t>::max();
    std::int32_t top = std::numeric_limits<std::int32_t>::max();
    std::int32_t right = std::numeric_limits<std::int32_t>::min();
    std::int32_t bottom = std::numeric_limits<std::int32_t>::min();
};

/// Reverses the corners after the first one, so that the fan keeps its triangles.
template <class Corner>
void turnRound(std::vector<Corner>& corners) {
    std::reverse(corners.begin() + 1, corners.end());
}

} // namespace

void MeshPainter::begin(std::span<const MaterialRecord> materials, const ViewState& state) {
    materials_.take(materials, state);
}

void MeshPainter::draw(const RasterContext& context, const DrawItem& item, bool translucentPass) {
    materials_.select(item.frame->Mesh);
    if (!materials_.any(translucentPass)) {
        return;
    }
    const Containment where = containment(context, item);
    if (where == Containment::Outside) {
        return;
    }
    setUp(context, item, translucentPass);
    projectVertices(context, *cache_, where, screen_);
    collect(translucentPass);
    if (translucentPass) {
        sortByDepth();
    }
    const std::uint32_t firstStamp = nextStamp_;
    nextStamp_ += static_cast<std::uint32_t>(materials_.slotCount());
    const auto drawOne = [&](const Candidate& candidate) {
        const std::size_t slot = materials_.slot(*mesh_, candidate.face);
        slotStamp_ = firstStamp + static_cast<std::uint32_t>(slot);
        if (candidate.crossing) {
            drawCrossing(candidate.face, materials_[slot]);
        } else if (passes(candidate.product)) {
            drawInside(candidate.face, materials_[slot]);
        }
    };
    if (translucentPass) {
        for (const DepthKey& key : keys_) {
            drawOne(candidates_[key.index]);
        }
    } else {
        for (const Candidate& candidate : candidates_) {
            drawOne(candidate);
        }
    }
}

void MeshPainter::setUp(const RasterContext& context, const DrawItem& item, bool translucentPass) {
    context_ = &context;
    mesh_ = &item.frame->Mesh;
    cache_ = &drawCache(*item.frame);
    const Vec3 half = halfVector(context.state.light, context.state.eye);
    light_ = {context.camera.directionToWorld(context.state.light),
              context.camera.directionToWorld(half), context.camera.directionToWorld({0, 0, 1})};
    // like OpenGL, light far sides from the side they are seen from
    bothSides_ =
        item.frame->RenderBackwards || (translucentPass && context.state.showHiddenTransparent);
    flipNormals_ = bothSides_;
    mirrored_ = mirrors(item.world);
    // plus one for corners without any normal
    const std::size_t normals = cache_->WorldCache2.size() + cache_->WorldCache3.size() + 1;
    if (litNormals_.size() < normals) {
        litNormals_.resize(normals);
    }
    if (std::numeric_limits<std::uint32_t>::max() - nextStamp_ < materials_.slotCount()) {
        std::fill(litNormals_.begin(), litNormals_.end(), LitNormal());
        nextStamp_ = 1;
    }
}

/// Collects the faces that may show, without those with a corner that leads nowhere, and sets the
/// back-face threshold by the sizes of front faces.
void MeshPainter::collect(bool translucentPass) {
    candidates_.clear();
    const bool mixed = materials_.any(!translucentPass);
    const PolygonList& faces = mesh_->Faces;
    const std::span<const ScreenVertex> screen = screen_;
    const float sign = mirrored_ ? -1.0F : 1.0F;
    double area = 0.0;
    std::size_t count = 0;
    std::size_t small = 0;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const std::span<const std::uint32_t> corners = faces[i];
        if (corners.size() < 3 ||
            (mixed && materials_[materials_.slot(*mesh_, i)].translucent != translucentPass)) {
            continue;
        }
        FaceExtent extent;
        if (!extent.add(corners, screen) || extent.allOutside != 0) {
            continue;
        }
        const auto face = static_cast<std::uint32_t>(i);
        if (extent.someOutside != 0) {
            candidates_.push_back({face, 0.0F, true});
            continue;
        }
        const float product =
            sign * inPixels(fanProduct(corners.size(), [&](std::size_t k) -> const ScreenVertex& {
                return screen[corners[k]];
            }));
        if (product < 0 || bothSides_) {
            const float pixels = std::abs(product) / 2;
            area += pixels;
            ++count;
            small += pixels < denseFacePixels ? 1 : 0;
            if (extent.holdsPixel()) {
                candidates_.push_back({face, product, false});
            }
        }
    }
    threshold_ = static_cast<float>(context_->state.backFaceThreshold);
    // by count too: a few large faces must not make a dense mesh pass for a sparse one
    if (count > 0 && (area < denseFacePixels * static_cast<double>(count) || small * 2 > count)) {
        threshold_ = 0.0F;
    }
}

bool MeshPainter::passes(float product) const {
    return (bothSides_ ? -std::abs(product) : product) < threshold_;
}

void MeshPainter::sortByDepth() {
    keys_.clear();
    for (std::size_t i = 0; i < candidates_.size(); ++i) {
        const std::span<const std::uint32_t> corners = mesh_->Faces[candidates_[i].face];
        double sum = 0.0;
        for (const std::uint32_t corner : corners) {
            sum += screen_[corner].z;
        }
        const double mean = sum / static_cast<double>(corners.size());
        if (!std::isnan(mean)) { // else some corner is not a number, and the face is not drawn
            keys_.emplace_back(static_cast<float>(mean), static_cast<std::uint32_t>(i));
        }
    }
    orderFarToNear(keys_, keyScratch_);
}

/// Calls `use` with each corner and the index of its normal: its own, else the face's.
template <class Use>
void MeshPainter::forEachNormal(std::size_t face, std::size_t corners, const Use& use) const {
    const std::span<const Vec3> own = cache_->WorldCache2;
    const bool allUsable = cache_->WorldCache3.empty();
    const std::span<const std::uint32_t> normals = face < mesh_->NormalFaces.size()
                                                       ? mesh_->NormalFaces[face]
                                                       : std::span<const std::uint32_t>();
    for (std::size_t k = 0; k < corners; ++k) {
        if (k < normals.size() && normals[k] < own.size() &&
            (allUsable || usableNormal(own[normals[k]]))) {
            use(k, normals[k]);
        } else {
            use(k, own.size() + std::min(face, cache_->WorldCache3.size()));
        }
    }
}

LitColor MeshPainter::lit(std::size_t normalNumber, const SurfaceColors& colors) const {
    const std::size_t own = cache_->WorldCache2.size();
    Vec3 n;
    if (normalNumber < own) {
        n = cache_->WorldCache2[normalNumber];
    } else if (normalNumber - own < cache_->WorldCache3.size()) {
        n = cache_->WorldCache3[normalNumber - own];
    }
    return lightNormal(n, light_, colors, flipNormals_);
}

const MeshPainter::LitNormal& MeshPainter::smoothColor(std::size_t normalNumber,
                                                       const SurfaceColors& colors) {
    LitNormal& known = litNormals_[normalNumber];
    if (known.stamp != slotStamp_) {
        const ColorRGB color = lit(normalNumber, colors).withHighlight(colors.specular);
        known = {color.red * 255, color.green * 255, color.blue * 255, slotStamp_};
    }
    return known;
}

void MeshPainter::drawInside(std::uint32_t face, const DrawMaterial& material) {
    const std::span<const std::uint32_t> vertices = mesh_->Faces[face];
    corners_.resize(vertices.size());
    if (context_->state.mode == RenderMode::SmoothShading) {
        forEachNormal(face, vertices.size(), [&](std::size_t k, std::size_t number) {
            const LitNormal& color = smoothColor(number, material.colors);
            corners_[k].values = {0, color.red, color.green, color.blue};
        });
    } else {
        const ColorRGB color = flatFaceColor(face, vertices.size(), material.colors);
        for (RasterCorner& corner : corners_) {
            corner.values = {0, color.red, color.green, color.blue};
        }
    }
    for (std::size_t k = 0; k < vertices.size(); ++k) {
        const ScreenVertex& at = screen_[vertices[k]];
        corners_[k].x = at.x;
        corners_[k].y = at.y;
        corners_[k].values[0] = at.z;
    }
    bool textured = material.textured;
    if (textured) {
        const auto coordinates = textureCorners(*mesh_, face, vertices.size());
        textured = !coordinates.empty();
        for (std::size_t k = 0; k < coordinates.size(); ++k) {
            const Vec2& at = mesh_->TexCoords[coordinates[k]];
            corners_[k].s = at.u;
            corners_[k].t = 1.0F - at.v;
        }
    }
    if (mirrored_) {
        turnRound(corners_);
    }
    fill(material, textured);
}

void MeshPainter::drawCrossing(std::uint32_t face, const DrawMaterial& material) {
    const std::span<const std::uint32_t> vertices = mesh_->Faces[face];
    const std::span<const std::uint32_t> coordinates =
        material.textured ? textureCorners(*mesh_, face, vertices.size())
                          : std::span<const std::uint32_t>();
    const bool smooth = context_->state.mode == RenderMode::SmoothShading;
    const ColorRGB flat =
        smooth ? ColorRGB() : flatFaceColor(face, vertices.size(), material.colors);
    std::vector<RenderVertex>& polygon = clipper_.polygon();
    polygon.resize(vertices.size());
    for (std::size_t k = 0; k < vertices.size(); ++k) {
        RenderVertex& corner = polygon[k];
        corner.position = context_->camera.toView(cache_->WorldVertices[vertices[k]]);
        if (!usablePosition(corner.position)) {
            return;
        }
        // the colour includes the highlight, as clipping does not interpolate the specular
        // intensity
        corner.color = {flat.red, flat.green, flat.blue};
        const Vec2 at = coordinates.empty() ? Vec2() : mesh_->TexCoords[coordinates[k]];
        corner.u = at.u;
        corner.v = at.v;
    }
    if (smooth) {
        forEachNormal(face, vertices.size(), [&](std::size_t k, std::size_t number) {
            const LitNormal& color = smoothColor(number, material.colors);
            polygon[k].color = {color.red, color.green, color.blue};
        });
    }
    if (mirrored_) {
        turnRound(polygon);
    }
    if (!clipper_.clip(context_->geometry)) {
        return;
    }
    corners_.resize(polygon.size());
    for (std::size_t k = 0; k < polygon.size(); ++k) {
        const RenderVertex& from = polygon[k];
        const auto at = projected(context_->geometry, from.position);
        corners_[k] = {at[0],
                       at[1],
                       {from.position.z, from.color[0], from.color[1], from.color[2]},
                       from.u,
                       1.0F - from.v};
    }
    const std::int64_t product = fanProduct(
        corners_.size(), [this](std::size_t k) -> const RasterCorner& { return corners_[k]; });
    if (passes(inPixels(product))) {
        fill(material, !coordinates.empty());
    }
}

void MeshPainter::fill(const DrawMaterial& material, bool textured) {
    RasterSurface surface;
    const TextureSampler sampler = textured ? TextureSampler(*material.image) : TextureSampler();
    surface.texture = textured && placeTexture(sampler) ? &sampler : nullptr;
    surface.blend = material.translucent;
    surface.opacity = material.opacity;
    fillPolygon(context_->target, corners_, surface);
}

ColorRGB MeshPainter::flatFaceColor(std::size_t face, std::size_t corners,
                                    const SurfaceColors& colors) const {
    ColorRGB mean;
    float specular = 0.0F;
    forEachNormal(face, corners, [&](std::size_t /*corner*/, std::size_t number) {
        const LitColor color = lit(number, colors);
        mean.red += color.color.red;
        mean.green += color.color.green;
        mean.blue += color.color.blue;
        specular += color.specular;
    });
    const float share = 1.0F / static_cast<float>(corners);
    return flatColor({mean.red * share, mean.green * share, mean.blue * share}, specular * share,
                     colors.specular);
}

bool MeshPainter::placeTexture(const TextureSampler& sampler) {
    float leastS = std::numeric_limits<float>::max();
    float leastT = leastS;
    float mostS = std::numeric_limits<float>::lowest();
    float mostT = mostS;
    for (const RasterCorner& corner : corners_) {
        if (!std::isfinite(corner.s) || !std::isfinite(corner.t)) {
            return false;
        }
        leastS = std::min(leastS, corner.s);
        mostS = std::max(mostS, corner.s);
        leastT = std::min(leastT, corner.t);
        mostT = std::max(mostT, corner.t);
    }
    // subtracting whole repeats keeps positions small and above 0
    const float offS = std::floor(leastS) - 1.0F;
    const float offT = std::floor(leastT) - 1.0F;
    constexpr auto steps = static_cast<float>(TextureSampler::steps);
    const float width = static_cast<float>(sampler.width()) * steps;
    const float height = static_cast<float>(sampler.height()) * steps;
    if (!((mostS - offS) * width < maxTexturePosition) ||
        !((mostT - offT) * height < maxTexturePosition)) {
        return false;
    }
    for (RasterCorner& corner : corners_) {
        // far from 0, floor() - 1 may round to the coordinate itself
        corner.s = std::max((corner.s - offS) * width - steps / 2, 0.0F);
        corner.t = std::max((corner.t - offT) * height - steps / 2, 0.0F);
    }
    return true;
}

} // namespace korvane
