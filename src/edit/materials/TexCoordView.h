#pragma once

#include "edit/materials/FacePart.h"
#include "render/math/VectorMath.h"
#include "render/picture/Bitmap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

struct MeshRecord;
struct TextureImage;

/// The colours of the texture view.
struct TexCoordColors {
    BitmapPixel selected = 0xffff00ffU;
    BitmapPixel inactive = 0xff00ffffU;
    BitmapPixel background = 0xff808080U; ///< around the texture
};

/// The ranges of the scroll bars that the view needs, in texture pixels.
struct ScrollRanges {
    std::optional<std::int32_t> horizontal; ///< nothing if the texture fits
    std::optional<std::int32_t> vertical;

    bool operator==(const ScrollRanges&) const = default;
};

/// The texture coordinates of a face in texture pixels, for the status bar, in UTF-8.
struct TexCoordTexts {
    std::string x;
    std::string y;
};

/// The texture view: shows a texture, zoomed and scrolled, and the faces of a mesh outlined over
/// it. Texture coordinates grow upward, rows downward.
class TexCoordView {
  public:
    static constexpr std::int32_t maxZoom = 8;

    /// Set the sizes in pixels, each side taken as at least 1. The next scrollcheck() brings the
    /// offsets back into range.
    void setViewSize(std::int32_t width, std::int32_t height);
    void setTextureSize(std::int32_t width, std::int32_t height);
    /// Whether the texture is a single pixel. Dragging makes no sense there: moving by a pixel
    /// would cross the whole texture.
    [[nodiscard]] bool isSinglePixel() const { return textureWidth_ == 1 && textureHeight_ == 1; }

    [[nodiscard]] std::int32_t zoom() const { return zoom_; }
    /// Doubles or halves the zoom within 1 to maxZoom. Returns false at the limit.
    bool zoomIn();
    bool zoomOut();
    /// The same, keeping the texture pixel at a place of the view there as far as the scroll ranges
    /// allow.
    bool zoomAbout(float x, float y, bool in);
    /// Scrolls as little as needed to show the part's texture coordinates, or their top left corner
    /// if the view is too small. Returns whether it scrolled.
    bool reveal(const MeshRecord& mesh, FacePart part);

    /// Brings the offsets into range and returns the ranges of the scroll bars.
    ScrollRanges scrollcheck();
    /// The texture pixel in the top left corner.
    [[nodiscard]] std::int32_t offsetX() const { return offsetX_; }
    [[nodiscard]] std::int32_t offsetY() const { return offsetY_; }
    void setOffsets(std::int32_t x, std::int32_t y);

    /// Convert a texture coordinate to pixels of the texture and of the screen.
    [[nodiscard]] Vec2 toTexture(Vec2 coordinate) const;
    [[nodiscard]] Vec2 toScreen(Vec2 coordinate) const;
    /// Converts a movement in screen pixels to a change of texture coordinates.
    [[nodiscard]] Vec2 movement(float dx, float dy) const;

    /// Draws the texture and the faces into the bitmap and gives that the view's size. Outlines
    /// skip corners without texture coordinates. `only` lists the faces to draw; null means all.
    void draw(Bitmap& bitmap, const TextureImage& texture, const MeshRecord& mesh,
              std::optional<FacePart> selected, const TexCoordColors& colors,
              const std::vector<std::size_t>* only = nullptr) const;
    /// The screen position of the selected vertex, if it has a texture coordinate. The control
    /// paints the mark there.
    [[nodiscard]] std::optional<Vec2> selectedVertex(const MeshRecord& mesh,
                                                     const std::optional<FacePart>& selected) const;
    /// The texture coordinates of the selected face's corners that have any, cut short for very
    /// many corners.
    [[nodiscard]] TexCoordTexts texts(const MeshRecord& mesh,
                                      const std::optional<FacePart>& selected) const;

  private:
    void drawTexture(Bitmap& bitmap, const TextureImage& texture, BitmapPixel background) const;
    void drawFace(Bitmap& bitmap, const MeshRecord& mesh, std::size_t face,
                  BitmapPixel color) const;
    void drawCorners(Bitmap& bitmap, const MeshRecord& mesh, std::size_t face,
                     BitmapPixel color) const;

    std::int32_t zoom_ = 1;
    std::int32_t offsetX_ = 0;
    std::int32_t offsetY_ = 0;
    std::int32_t width_ = 1;
    std::int32_t height_ = 1;
    std::int32_t textureWidth_ = 1;
    std::int32_t textureHeight_ = 1;
};

} // namespace korvane
