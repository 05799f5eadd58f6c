#include "formats/TextureLoader.h"
#include "formats/XsiWriter.h"
#include "tool/Commands.h"

#include <QFileInfo>

namespace korvane::tool {

ExitStatus texture(const QStringList& words) {
    if (words.size() != 2) {
        return usage(QStringLiteral("texture needs IN and OUT.png"));
    }
    const QString& in = words[0];
    const QString& out = words[1];
    TextureLoader loader{QFileInfo(in).path()};
    const auto file = loader.find(in);
    if (!file) {
        return refuse(in, QStringLiteral("No such file"));
    }
    const TextureImage image = loadTextureFile(*file);
    return savePng(imageOf(image), out);
}

} // namespace korvane::tool
