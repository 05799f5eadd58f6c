#include "edit/materials/TexCoordView.h"

#include "edit/materials/TexCoordFace.h"
#include "model/records/TextureImage.h"
#include "render/picture/LineDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace korvane {

namespace {

/// Truncates and clamps to the range of the result; NaN returns 0.
std::int32_t whole(float value) {
    constexpr float limit = 2147483648.0F;
    if (!(std::abs(value) < limit)) {
        return std::isnan(value) ? 0 : value < 0 ? INT32_MIN : INT32_MAX;
    }
    return static_cast<std::int32_t>(value);
}

BitmapPixel bitmapPixel(Rgba8 color) {
    return 0xff000000U | BitmapPixel{color.red} << 16U | BitmapPixel{color.green} << 8U |
           color.blue;
}

/// The scroll range along one side; nothing if the texture fits.
std::optional<std::int32_t> scrollRange(std::int32_t texture, std::int32_t view,
                                        std::int32_t zoom) {
    const std::int64_t rest = std::int64_t{texture} * zoom - view;
    return rest > 0 ? std::optional(static_cast<std::int32_t>(rest / zoom)) : std::nullopt;
}

/// Appends a number up to a length: nobody reads thousands of corners, and the text has to fit into
/// a status bar.
void appendNumber(std::string& text, const char* separator, float pixels) {
    constexpr std::size_t longest = 4096;
    if (text.size() < longest) {
        text += separator + std::to_string(whole(pixels));
    } else if (text.back() != '.') {
        text += ", ...";
    }
}

} // namespace

void TexCoordView::setViewSize(std::int32_t width, std::int32_t height) {
    width_ = std::max(width, 1);
    height_ = std::max(height, 1);
}

void TexCoordView::setTextureSize(std::int32_t width, std::int32_t height) {
    textureWidth_ = std::max(width, 1);
    textureHeight_ = std::max(height, 1);
}

bool TexCoordView::zoomIn() {
    if (zoom_ >= maxZoom) {
        return false;
    }
    zoom_ *= 2;
    return true;
}

bool TexCoordView::zoomOut() {
    if (zoom_ <= 1) {
        return false;
    }
    zoom_ /= 2;
    return true;
}

bool TexCoordView::zoomAbout(float x, float y, bool in) {
    const std::int32_t before = zoom_;
    if (!(in ? zoomIn() : zoomOut())) {
        return false;
    }
    // the texture pixel at the place, less the pixels now shown before it
    const auto offset = [&](std::int32_t old, float place) {
        const float at = static_cast<float>(old) + place / static_cast<float>(before);
        return whole(std::floor(at - place / static_cast<float>(zoom_) + 0.5F));
    };
    setOffsets(offset(offsetX_, x), offset(offsetY_, y));
    return true;
}

bool TexCoordView::reveal(const MeshRecord& mesh, FacePart part) {
    std::optional<std::pair<Vec2, Vec2>> box;
    forEachTexCoordNumber(mesh, part.face, [&](std::uint32_t number, std::size_t vertex) {
        const Vec2 at = toTexture(mesh.TexCoords[number]);
        if (part.vertex != 0 && part.vertex != vertex) {
            return;
        }
        box = box ? std::pair(Vec2{std::min(box->first.u, at.u), std::min(box->first.v, at.v)},
                              Vec2{std::max(box->second.u, at.u), std::max(box->second.v, at.v)})
                  : std::pair(at, at);
    });
    if (!box) {
        return false;
    }
    const auto offset = [&](std::int32_t old, float first, float last, std::int32_t size) {
        const std::int64_t shown = size / zoom_;
        const std::int64_t begin = whole(first);
        const std::int64_t end = std::int64_t{whole(last)} + 1;
        const std::int64_t least = std::min(std::max<std::int64_t>(old, end - shown), begin);
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(least, INT32_MIN, INT32_MAX));
    };
    const std::pair before(offsetX_, offsetY_);
    setOffsets(offset(offsetX_, box->first.u, box->second.u, width_),
               offset(offsetY_, box->first.v, box->second.v, height_));
    return before != std::pair(offsetX_, offsetY_);
}

ScrollRanges TexCoordView::scrollcheck() {
    const ScrollRanges ranges = {scrollRange(textureWidth_, width_, zoom_),
                                 scrollRange(textureHeight_, height_, zoom_)};
    offsetX_ = std::clamp(offsetX_, 0, ranges.horizontal.value_or(0));
    offsetY_ = std::clamp(offsetY_, 0, ranges.vertical.value_or(0));
    return ranges;
}

void TexCoordView::setOffsets(std::int32_t x, std::int32_t y) {
    offsetX_ = x;
    offsetY_ = y;
    scrollcheck();
}

Vec2 TexCoordView::toTexture(Vec2 coordinate) const {
    return {coordinate.u * static_cast<float>(textureWidth_),
            (1.0F - coordinate.v) * static_cast<float>(textureHeight_)};
}

Vec2 TexCoordView::toScreen(Vec2 coordinate) const {
    const Vec2 at = toTexture(coordinate);
    const auto zoom = static_cast<float>(zoom_);
    return {(at.u - static_cast<float>(offsetX_)) * zoom,
            (at.v - static_cast<float>(offsetY_)) * zoom};
}

Vec2 TexCoordView::movement(float dx, float dy) const {
    const auto zoom = static_cast<float>(zoom_);
    return {dx / zoom / static_cast<float>(textureWidth_),
            -(dy / zoom / static_cast<float>(textureHeight_))};
}

void TexCoordView::draw(Bitmap& bitmap, const TextureImage& texture, const MeshRecord& mesh,
                        std::optional<FacePart> selected, const TexCoordColors& colors,
                        const std::vector<std::size_t>* only) const {
    bitmap.resize(width_, height_);
    drawTexture(bitmap, texture, colors.background);
    const std::size_t faces = texCoordFaceCount(mesh);
    const std::size_t drawn = only != nullptr ? only->size() : faces;
    for (std::size_t i = 0; i < drawn; ++i) {
        drawFace(bitmap, mesh, only != nullptr ? (*only)[i] : i, colors.inactive);
    }
    if (selected && selected->face < faces) {
        drawFace(bitmap, mesh, selected->face, colors.selected);
        drawCorners(bitmap, mesh, selected->face, colors.selected);
    }
}

void TexCoordView::drawTexture(Bitmap& bitmap, const TextureImage& texture,
                               BitmapPixel background) const {
    // the screen columns and rows that the texture covers
    const auto columns = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        (std::int64_t{texture.width} - offsetX_) * zoom_, 0, bitmap.width()));
    const auto rows = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        (std::int64_t{texture.height} - offsetY_) * zoom_, 0, bitmap.height()));
    for (std::int32_t y = 0; y < bitmap.height(); ++y) {
        BitmapPixel* const to = bitmap.pixels() + std::ptrdiff_t{y} * bitmap.width();
        const std::int32_t shown = y < rows ? columns : 0;
        const std::size_t from = static_cast<std::size_t>(offsetY_ + y / zoom_) *
                                     static_cast<std::size_t>(texture.width) +
                                 static_cast<std::size_t>(offsetX_);
        for (std::int32_t x = 0; x < shown; ++x) {
            to[x] = bitmapPixel(texture.pixels[from + static_cast<std::size_t>(x / zoom_)]);
        }
        std::fill(to + shown, to + bitmap.width(), background);
    }
}

void TexCoordView::drawFace(Bitmap& bitmap, const MeshRecord& mesh, std::size_t face,
                            BitmapPixel color) const {
    std::optional<Vec2> first;
    Vec2 last;
    const auto line = [&](Vec2 from, Vec2 to) {
        drawLine(bitmap, std::trunc(from.u), std::trunc(from.v), std::trunc(to.u), std::trunc(to.v),
                 color);
    };
    forEachTexCoord(mesh, face, [&](Vec2 coordinate) {
        const Vec2 at = toScreen(coordinate);
        line(first ? last : at, at);
        first = first ? first : at;
        last = at;
    });
    if (first) {
        line(last, *first);
    }
}

void TexCoordView::drawCorners(Bitmap& bitmap, const MeshRecord& mesh, std::size_t face,
                               BitmapPixel color) const {
    constexpr float radius = 2.0F;
    forEachTexCoord(mesh, face, [&](Vec2 coordinate) {
        const Vec2 at = toScreen(coordinate);
        const std::int64_t left = whole(at.u - radius);
        const std::int64_t top = whole(at.v - radius);
        const std::int64_t width = whole(at.u + radius) - left;
        const std::int64_t height = whole(at.v + radius) - top;
        drawEllipse(bitmap,
                    {static_cast<std::int32_t>(left + width / 2),
                     static_cast<std::int32_t>(top + height / 2)},
                    static_cast<std::int32_t>(width / 2), static_cast<std::int32_t>(height / 2),
                    color);
    });
}

std::optional<Vec2> TexCoordView::selectedVertex(const MeshRecord& mesh,
                                                 const std::optional<FacePart>& selected) const {
    std::optional<Vec2> found;
    if (selected && selected->vertex != 0) {
        forEachTexCoordNumber(mesh, selected->face, [&](std::uint32_t number, std::size_t vertex) {
            found = vertex == selected->vertex ? toScreen(mesh.TexCoords[number]) : found;
        });
    }
    return found;
}

TexCoordTexts TexCoordView::texts(const MeshRecord& mesh,
                                  const std::optional<FacePart>& selected) const {
    if (!selected || !mesh.HasTexCoords) {
        return {"X:", "Y:"};
    }
    TexCoordTexts texts = {"X: (", "Y: ("};
    const char* separator = "";
    forEachTexCoord(mesh, selected->face, [&](Vec2 coordinate) {
        const Vec2 at = toTexture(coordinate);
        appendNumber(texts.x, separator, at.u);
        appendNumber(texts.y, separator, at.v);
        separator = ", ";
    });
    texts.x += ')';
    texts.y += ')';
    return texts;
}

} // namespace korvane
