#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <string>

namespace korvane {

struct MaterialRecord;

/// The name of a texture without its folders, which slashes or backslashes separate.
QString withoutFolder(const std::string& name);

/// Finds the file that a texture's name stands for.
using TextureFinder = std::function<std::optional<QString>(const std::string& name)>;

/// What the texture view says in place of the material's picture; empty if there is one to show.
/// `shownName` is the texture's name, shortened to fit.
QString textureViewText(const MaterialRecord& material, const TextureFinder& find,
                        const QString& shownName);

} // namespace korvane
