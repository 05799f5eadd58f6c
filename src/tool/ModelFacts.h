#pragma once

#include "model/document/ModelCounts.h"
#include "render/scene/DrawCache.h"
#include "render/scene/DrawList.h"
#include "tool/ModelInput.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace korvane::tool {

/// A frame of a model with derived facts.
struct FrameFacts {
    const FrameRecord* frame = nullptr;
    std::optional<std::size_t> parent; ///< its index in the list; nullopt for the root
    Bounds bounds;                     ///< of all vertices, in the frame's own space
};

/// Facts about a model beyond its structure. Refers to the model, which must not change.
struct ModelFacts {
    explicit ModelFacts(ModelInput& model);

    ModelCounts counts;
    std::vector<FrameFacts> frames; ///< in the order of the structure, the root first
    Bounds bounds;                  ///< of all vertices, in world space
    /// The texture of each material; nullopt if it names none or none is found.
    std::vector<std::optional<TextureFacts>> textures;
};

} // namespace korvane::tool
