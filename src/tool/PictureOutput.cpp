#include "tool/PictureOutput.h"

#include "formats/files/FileNames.h"
#include "tool/FileName.h"

#include <QBuffer>

#include <string_view>

namespace korvane::tool {

void addFormatOption(CommandLine& line) {
    line.addValue("format", "png",
                  "Write a PNG picture under any name, not only one that ends in .png.");
}

void checkPictureOutput(const CommandLine& line, const QString& out) {
    const bool anyName = line.choice("format", {QStringLiteral("png")}).has_value();
    if (!anyName && !isStandardStream(out) && upperExtension(out) != QLatin1String(".PNG")) {
        throw WrongCall(
            QStringLiteral("the output \"%1\" must end in .png, unless --format png is given")
                .arg(out));
    }
}

void savePng(const QImage& picture, const QString& out) {
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    const bool encoded = picture.save(&png, "PNG");
    const std::string_view bytes(png.data().constData(), static_cast<std::size_t>(png.size()));
    writeOutput(out, [&](const TextSink& sink) { return encoded && sink(bytes); });
}

} // namespace korvane::tool
