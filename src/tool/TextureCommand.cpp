#include "formats/textures/TextureLoader.h"
#include "formats/textures/TexturePicture.h"
#include "tool/PictureOutput.h"

#include <QFileInfo>

namespace korvane::tool {

ExitStatus texture(const QStringList& words) {
    QCommandLineParser parser;
    addFormatOption(parser);
    if (!parser.parse(QStringList(QStringLiteral("texture")) + words)) {
        return wrongCall(parser.errorText());
    }
    const QStringList files = parser.positionalArguments();
    if (files.size() != 2) {
        return wrongCall(QStringLiteral("texture needs IN and OUT.png"));
    }
    const QString& in = files[0];
    const QString& out = files[1];
    if (const QString fault = pictureOutputFault(parser, out); !fault.isEmpty()) {
        return wrongCall(fault);
    }
    TextureLoader loader{QFileInfo(in).path()};
    const auto file = loader.find(in);
    if (!file) {
        return refuse(in, QStringLiteral("No such file"));
    }
    if (isSameFile(*file, out)) {
        return refuseInput(out);
    }
    const TextureImage image = loadTextureFile(*file);
    return savePng(imageOf(image), out);
}

} // namespace korvane::tool
