#include "edit/materials/TextureViewText.h"

#include "model/records/MaterialRecord.h"
#include "model/records/ModelText.h"

#include <algorithm>

namespace korvane {

QString withoutFolder(const std::string& name) {
    const QString text = shownText(name);
    return text.mid(std::max(text.lastIndexOf(u'/'), text.lastIndexOf(u'\\')) + 1);
}

QString textureViewText(const MaterialRecord& material, const TextureFinder& find,
                        const QString& shownName) {
    const bool named = !material.TextureFile.empty();
    if (!material.HasTexture) {
        return named ? shownName + QStringLiteral(" is switched off and will not be saved")
                     : QStringLiteral("The texture is off.");
    }
    if (*material.TextureImage != *blankTextureImage()) {
        return {};
    }
    if (!named) {
        return QStringLiteral("No texture is chosen.");
    }
    return shownName + (find(material.TextureFile) ? QStringLiteral(" cannot be shown")
                                                   : QStringLiteral(" was not found"));
}

} // namespace korvane
