#include "edit/materials/TexCoordDrag.h"

#include "edit/materials/TexCoordFace.h"

#include <cstddef>
#include <utility>

namespace korvane {

namespace {

Vec2& coordinate(MeshRecord& mesh, std::int32_t number) {
    return mesh.TexCoords[static_cast<std::size_t>(number)];
}

float withinTexture(float value) {
    return value > 1.0F ? 1.0F : value < 0.0F ? 0.0F : value;
}

} // namespace

bool TexCoordDrag::begin(const DragInput& input, const TexCoordView& view, const MeshRecord& mesh,
                         FacePart moved) {
    if (active_ || input.button != DragButton::Left || view.isSinglePixel()) {
        return false;
    }
    numbers_.clear();
    before_.clear();
    forEachTexCoordNumber(mesh, moved.face, [&](std::uint32_t number, std::size_t vertex) {
        if (moved.vertex == 0 || moved.vertex == vertex) {
            numbers_.push_back(static_cast<std::int32_t>(number));
            before_.push_back(mesh.TexCoords[number]);
        }
    });
    start_ = input;
    active_ = !numbers_.empty();
    return active_;
}

bool TexCoordDrag::update(const DragInput& input, const TexCoordView& view,
                          MeshRecord& mesh) const {
    const Vec2 way = view.movement(input.x - start_.x, input.y - start_.y);
    for (std::size_t i = 0; active_ && i < numbers_.size(); ++i) {
        coordinate(mesh, numbers_[i]) = {withinTexture(before_[i].u + way.u),
                                         withinTexture(before_[i].v + way.v)};
    }
    return active_;
}

MovedTexCoords TexCoordDrag::moved(const MeshRecord& mesh) const {
    if (!active_) {
        return {};
    }
    MovedTexCoords moved = {numbers_, before_, {}};
    for (const std::int32_t number : numbers_) {
        moved.after.push_back(mesh.TexCoords[static_cast<std::size_t>(number)]);
    }
    return moved;
}

bool TexCoordDrag::cancel(MeshRecord& mesh) {
    for (std::size_t i = 0; active_ && i < numbers_.size(); ++i) {
        coordinate(mesh, numbers_[i]) = before_[i];
    }
    return std::exchange(active_, false);
}

} // namespace korvane
