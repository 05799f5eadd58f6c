#include "tool/PictureOutput.h"

#include "formats/files/AtomicFile.h"
#include "formats/files/FileNames.h"
#include "formats/xsi/XsiWriter.h"

#include <QBuffer>

#include <cstdio>
#include <string_view>

namespace korvane::tool {

void addFormatOption(QCommandLineParser& parser) {
    parser.addOption({QStringLiteral("format"), {}, QStringLiteral("png")});
}

QString pictureOutputFault(const QCommandLineParser& parser, const QString& out) {
    const QString format = QStringLiteral("format");
    if (parser.isSet(format)) {
        return parser.value(format) == QLatin1String("png")
                   ? QString()
                   : QStringLiteral("\"%1\" is no value for --format").arg(parser.value(format));
    }
    if (isStandardOutput(out) || upperExtension(out) == QLatin1String(".PNG")) {
        return {};
    }
    return QStringLiteral("the picture would go to \"%1\": its name must end in .png, unless "
                          "--format png is given")
        .arg(out);
}

bool isStandardOutput(const QString& out) {
    return out == QLatin1String("-");
}

ExitStatus savePng(const QImage& picture, const QString& out) {
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    bool saved = picture.save(&png, "PNG");
    const std::string_view bytes(png.data().constData(), static_cast<std::size_t>(png.size()));
    if (isStandardOutput(out)) {
        std::fwrite(bytes.data(), 1, bytes.size(), stdout); // the program's end tells of failures
    } else {
        saved = saved && replaceFile(out, [bytes](const TextSink& sink) { return sink(bytes); });
    }
    return saved ? ExitStatus::Done : refuse(out, QString::fromLatin1(saveFailureCaption));
}

} // namespace korvane::tool
