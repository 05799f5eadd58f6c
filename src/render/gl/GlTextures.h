#pragma once

#include "model/records/MaterialRecord.h"

#include <cstdint>
#include <memory>
#include <span>
#include <unordered_map>

namespace korvane {

/// The textures of a document in one OpenGL context, which must be current at each call.
class GlTextures {
  public:
    /// Uploads the materials' images that are new, and frees those that no material shows any more.
    /// Returns the number of uploads.
    std::size_t update(std::span<const MaterialRecord> materials);
    /// The texture's name; 0 for an image that no material showed at the last update.
    [[nodiscard]] std::uint32_t name(const TextureImage* image) const;
    [[nodiscard]] std::size_t count() const { return entries_.size(); }

  private:
    struct Entry {
        std::shared_ptr<const TextureImage> image; ///< owned, so that its address stays unique
        std::uint32_t name = 0;
        bool used = false;
    };

    std::unordered_map<const TextureImage*, Entry> entries_;
};

} // namespace korvane
