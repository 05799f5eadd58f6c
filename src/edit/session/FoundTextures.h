#pragma once

#include "formats/textures/TextureLoader.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace korvane {

struct ModelDocument;

/// Where the textures of a model are. Each is looked for once until the model changes: rows are
/// told of at any time, and a folder on a network may be slow.
class FoundTextures {
  public:
    std::optional<QString> find(const ModelDocument& model, const std::string& name);

  private:
    std::optional<TextureLoader> loader_;
    std::uint64_t revision_ = 0;
    std::unordered_map<std::string, std::optional<QString>> byName_;
};

} // namespace korvane
