#pragma once

#include <QString>

#include <string>

namespace korvane {

struct MaterialRecord;

/// The name of a texture without its folder, whichever way the folders are separated.
QString withoutFolder(const std::string& name);

/// What the texture view says in place of the material's picture; empty where there is one to show.
/// The texture is looked for beside the model in `modelFolder`; `shownName` is its name as there is
/// room for.
QString textureViewText(const MaterialRecord& material, const QString& modelFolder,
                        const QString& shownName);

} // namespace korvane
