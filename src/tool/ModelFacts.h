#pragma once

#include "model/document/ModelCounts.h"
#include "render/scene/DrawCache.h"
#include "render/scene/DrawList.h"
#include "tool/ModelInput.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace korvane::tool {

/// A frame of a model with what the record does not tell.
struct FrameFacts {
    const FrameRecord* frame = nullptr;
    std::optional<std::size_t> parent; ///< its place in the list; nothing for the root
    Bounds bounds;                     ///< of all vertices, in the frame's own space
};

/// What a program or a person may want to know of a model beyond its structure. Refers to the
/// model, which must stay as it is.
struct ModelFacts {
    explicit ModelFacts(ModelInput& model);

    ModelCounts counts;
    std::vector<FrameFacts> frames; ///< in the order of the structure, the root first
    Bounds bounds;                  ///< of all vertices, in world space
    /// For each material its texture, if it names one that is there.
    std::vector<std::optional<TextureFacts>> textures;
};

} // namespace korvane::tool
