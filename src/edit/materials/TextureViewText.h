#pragma once

#include <QString>

#include <string>

namespace korvane {

struct MaterialRecord;

/// The name of a texture without its folders, which slashes or backslashes separate.
QString withoutFolder(const std::string& name);

/// What the texture view says in place of the material's picture; empty if there is one to show.
/// Looks for the texture relative to `modelFolder`. `shownName` is its name, shortened to fit.
QString textureViewText(const MaterialRecord& material, const QString& modelFolder,
                        const QString& shownName);

} // namespace korvane
