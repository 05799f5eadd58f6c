#include "render/scene/DrawMaterials.h"

#include "model/records/MeshRecord.h"

#include <algorithm>

namespace korvane {

bool hasPicture(const MaterialRecord& material) {
    const TextureImage* image = material.TextureImage.get();
    if (!material.HasTexture || image == nullptr || image->width < 1 || image->height < 1) {
        return false;
    }
    const std::size_t pixels =
        static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height);
    return image->pixels.size() >= pixels && (pixels > 1 || image->pixels[0] != Rgba8{});
}

bool isTranslucent(const MaterialRecord& material, const ViewState& state) {
    return state.mode == RenderMode::SmoothShading && state.allowTransparent &&
           (material.FaceColor.alpha != 1.0F ||
            (hasPicture(material) && material.TextureImage->HasAlpha));
}

float shownOpacity(const MaterialRecord& material, const ViewState& state) {
    return isTranslucent(material, state) ? clampUnit(material.FaceColor.alpha) : 1.0F;
}

const MaterialRecord* materialOfFace(const MeshRecord& mesh, std::size_t face,
                                     std::span<const MaterialRecord> table) {
    const auto at = [](std::int64_t index, const auto& list) {
        return index >= 0 && index < static_cast<std::int64_t>(list.size())
                   ? &list[static_cast<std::size_t>(index)]
                   : nullptr;
    };
    const std::int32_t* index = at(slotOfFace(mesh, face), mesh.MaterialSlotList);
    return index != nullptr ? at(*index, table) : nullptr;
}

std::span<const std::uint32_t> textureCorners(const MeshRecord& mesh, std::size_t face,
                                              std::size_t corners) {
    if (!mesh.HasTexCoords || face >= mesh.TexCoordFaces.size()) {
        return {};
    }
    const std::span<const std::uint32_t> coordinates = mesh.TexCoordFaces[face];
    if (coordinates.size() < corners) {
        return {};
    }
    const auto used = coordinates.first(corners);
    const std::size_t count = mesh.TexCoords.size();
    return std::all_of(used.begin(), used.end(), [count](std::uint32_t at) { return at < count; })
               ? used
               : std::span<const std::uint32_t>();
}

DrawMaterial::DrawMaterial(const MaterialRecord& material, const ViewState& state)
    : colors(material), textured(hasPicture(material)), translucent(isTranslucent(material, state)),
      opacity(shownOpacity(material, state)) {
    if (textured) {
        image = material.TextureImage.get();
    }
}

void DrawMaterials::take(std::span<const MaterialRecord> table, const ViewState& state) {
    table_.clear();
    table_.reserve(table.size() + 1);
    for (const MaterialRecord& material : table) {
        table_.emplace_back(material, state);
    }
    table_.emplace_back(MaterialRecord(), state);
}

void DrawMaterials::select(const MeshRecord& mesh) {
    const auto known = static_cast<std::int64_t>(table_.size()) - 1;
    slots_.clear();
    usesNowhere_ = true;
    if (mesh.HasMaterials) {
        for (const std::int32_t index : mesh.MaterialSlotList) {
            slots_.push_back(index >= 0 && index < known ? &table_[static_cast<std::size_t>(index)]
                                                         : &table_.back());
        }
    }
    const auto slots = static_cast<std::int64_t>(slots_.size());
    // searched only if that decides whether the mesh has an opaque part
    usesNowhere_ = any(false) || slots == 0 ||
                   std::any_of(mesh.FaceSlotIndex.begin(), mesh.FaceSlotIndex.end(),
                               [slots](std::int32_t slot) { return slot < 0 || slot >= slots; });
    slots_.push_back(&table_.back());
}

bool DrawMaterials::any(bool translucent) const {
    const auto end = slots_.end() - (usesNowhere_ ? 0 : 1);
    return std::any_of(slots_.begin(), end, [translucent](const DrawMaterial* material) {
        return material->translucent == translucent;
    });
}

} // namespace korvane
