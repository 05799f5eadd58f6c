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

/// Which scroll bars the view needs, and how far they go, in pixels of the texture.
struct ScrollRanges {
    std::optional<std::int32_t> horizontal; ///< nothing where the texture fits
    std::optional<std::int32_t> vertical;

    bool operator==(const ScrollRanges&) const = default;
};

/// The texture coordinates of a face in pixels of the texture, as the status bar tells them in
/// UTF-8.
struct TexCoordTexts {
    std::string x;
    std::string y;
};

/// The texture view: shows a texture magnified and shifted, with the faces of a mesh outlined in
/// texture space over it. Texture coordinates grow upward, rows downward.
class TexCoordView {
  public:
    static constexpr std::int32_t maxZoom = 8;

    /// Sizes in pixels of the screen and of the texture; a side counts as at least 1. The offsets
    /// come back into range with the next scrollcheck().
    void setViewSize(std::int32_t width, std::int32_t height);
    void setTextureSize(std::int32_t width, std::int32_t height);
    /// Whether the texture is one pixel alone, on which there is nothing to aim at: a way of one
    /// pixel across it would be the whole texture.
    [[nodiscard]] bool isSinglePixel() const { return textureWidth_ == 1 && textureHeight_ == 1; }

    [[nodiscard]] std::int32_t zoom() const { return zoom_; }
    /// Doubles or halves the zoom within 1 to maxZoom. False if it is at its end.
    bool zoomIn();
    bool zoomOut();
    /// The same, keeping the pixel of the texture there that a place of the view shows, as far as
    /// the scroll ranges allow.
    bool zoomAbout(float x, float y, bool in);
    /// Scrolls as little as brings the texture coordinates of the part into sight; its beginning
    /// where there is too little room. Whether that moved anything.
    bool reveal(const MeshRecord& mesh, FacePart part);

    /// Tells which scroll bars are needed, and brings the offsets into their ranges.
    ScrollRanges scrollcheck();
    /// The pixel of the texture in the corner at the top left.
    [[nodiscard]] std::int32_t offsetX() const { return offsetX_; }
    [[nodiscard]] std::int32_t offsetY() const { return offsetY_; }
    void setOffsets(std::int32_t x, std::int32_t y);

    /// Where a texture coordinate stands in the texture and on the screen, in pixels.
    [[nodiscard]] Vec2 toTexture(Vec2 coordinate) const;
    [[nodiscard]] Vec2 toScreen(Vec2 coordinate) const;
    /// What a way across the screen, in pixels, adds to a texture coordinate.
    [[nodiscard]] Vec2 movement(float dx, float dy) const;

    /// Draws the texture and the faces into the bitmap, which gets the size of the view. Faces are
    /// outlined as far as their corners have texture coordinates.
    /// `only` are the faces to draw, in order; null means all.
    void draw(Bitmap& bitmap, const TextureImage& texture, const MeshRecord& mesh,
              std::optional<FacePart> selected, const TexCoordColors& colors,
              const std::vector<std::size_t>* only = nullptr) const;
    /// Where the selected vertex stands on the screen, if one is selected and has a texture
    /// coordinate. Its mark is the control's to paint.
    [[nodiscard]] std::optional<Vec2> selectedVertex(const MeshRecord& mesh,
                                                     const std::optional<FacePart>& selected) const;
    /// The texture coordinates of the selected face, without corners that have none. A face of very
    /// many corners is cut short.
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
