#pragma once

#include "render/scene/DrawCache.h"
#include "render/scene/DrawMaterials.h"
#include "render/software/DepthOrder.h"
#include "render/software/PolygonClipper.h"
#include "render/software/ScreenMesh.h"

#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

/// Draws the faces of meshes in flat and smooth shading. It keeps its buffers between meshes and
/// redraws, so that drawing allocates nothing once they have grown.
class MeshPainter {
  public:
    /// Takes the materials for the meshes of one redraw.
    void begin(std::span<const MaterialRecord> materials, const ViewState& state);
    /// Draws the faces of a pass: the opaque ones in their order, or the translucent ones from far
    /// to near. The frame's cache must be up to date.
    void draw(const RasterContext& context, const DrawItem& item, bool translucentPass);

  private:
    /// A lit colour, 0 to 255, of one normal under one material.
    struct LitNormal {
        float red;
        float green;
        float blue;
        std::uint32_t stamp; ///< of the mesh and slot that the colour is valid for
    };
    /// A face that may show.
    struct Candidate {
        std::uint32_t face;
        float product; ///< of its edges on the screen, in pixels; 0 for faces to be clipped
        bool crossing; ///< has to be clipped
    };

    void setUp(const RasterContext& context, const DrawItem& item, bool translucentPass);
    void collect(bool translucentPass);
    [[nodiscard]] bool passes(float product) const;
    void sortByDepth();
    void drawInside(std::uint32_t face, const DrawMaterial& material);
    void drawCrossing(std::uint32_t face, const DrawMaterial& material);
    void fill(const DrawMaterial& material, bool textured);

    template <class Use>
    void forEachNormal(std::size_t face, std::size_t corners, const Use& use) const;
    [[nodiscard]] LitColor lit(std::size_t normalNumber, const SurfaceColors& colors) const;
    const LitNormal& smoothColor(std::size_t normalNumber, const SurfaceColors& colors);
    [[nodiscard]] ColorRGB flatFaceColor(std::size_t face, std::size_t corners,
                                         const SurfaceColors& colors) const;
    /// Converts the corners' s and t from coordinates to positions in the texture. Returns false if
    /// they are out of range or not finite.
    bool placeTexture(const TextureSampler& sampler);

    DrawMaterials materials_;
    // of the current mesh
    const RasterContext* context_ = nullptr;
    const MeshRecord* mesh_ = nullptr;
    const DrawCache* cache_ = nullptr;
    LightDirections light_; ///< in world space
    bool flipNormals_ = false;
    bool bothSides_ = false;
    bool mirrored_ = false; ///< its corners run the other way on the screen
    float threshold_ = 0.0F;
    std::uint32_t nextStamp_ = 1; ///< of the first slot of the next mesh
    std::uint32_t slotStamp_ = 0; ///< of the current slot

    std::vector<ScreenVertex> screen_;
    std::vector<LitNormal> litNormals_;
    std::vector<Candidate> candidates_;
    std::vector<DepthKey> keys_;
    std::vector<DepthKey> keyScratch_;
    std::vector<RasterCorner> corners_;
    PolygonClipper clipper_;
};

} // namespace korvane
