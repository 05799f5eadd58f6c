#include "tool/Commands.h"

#include "formats/AtomicFile.h"
#include "formats/FileNames.h"
#include "formats/XsiReader.h"
#include "formats/XsiWriter.h"
#include "model/ModelText.h"

#include <QBuffer>

#include <algorithm>
#include <cstdio>

namespace korvane::tool {

namespace {

bool isControl(QChar c) {
    return c.category() == QChar::Other_Control;
}

} // namespace

std::string printable(std::string_view text) {
    const QString shown = shownText(text);
    return std::any_of(shown.begin(), shown.end(), isControl) ? printable(shown)
                                                              : std::string(text);
}

std::string printable(const QString& text) {
    QString escaped;
    for (const QChar c : text) {
        escaped += isControl(c) ? QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'))
                                : QString(c);
    }
    return escaped.toStdString();
}

ExitStatus refuse(const QString& file, const QString& reason) {
    std::fprintf(stderr, "%s: %s\n", printable(file).c_str(), printable(reason).c_str());
    return ExitStatus::Refused;
}

ExitStatus usage(const QString& reason) {
    std::fprintf(
        stderr,
        "korvane-tool: %s\n"
        "usage: korvane-tool info FILE...            what the models hold\n"
        "       korvane-tool convert IN OUT.xsi [--repeat N]\n"
        "                                            save a model as dotXSI; N times, with the\n"
        "                                            median times of loading and saving\n"
        "       korvane-tool render IN OUT.png [--mode wireframe|flat|smooth] [--view "
        "3d|xy|xz|zy]\n"
        "                    [--api software|opengl] [--size WxH] [--pitch R] [--yaw R]\n"
        "                    [--distance D] [--center X,Y,Z] [--no-transparent]\n"
        "                    [--no-hidden-transparent] [--repeat N]\n"
        "                                            a picture of the model; N times, with the\n"
        "                                            median time and the pixels drawn\n"
        "       korvane-tool texture IN OUT.png      a texture as the editor decodes it\n",
        printable(reason).c_str());
    return ExitStatus::Usage;
}

bool open(const QString& file, ModelDocument& document) {
    if (!isTextModelName(file)) {
        refuse(file, QStringLiteral("Not a model file (.xsi or .x)"));
        return false;
    }
    const ReadStatus status = FileOpenXSI(file, document);
    if (status == ReadStatus::Done) {
        return true;
    }
    refuse(file, status == ReadStatus::Missing ? QStringLiteral("No such file")
                                               : failureCaption(status, file));
    return false;
}

ExitStatus savePng(const QImage& picture, const QString& file) {
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    const bool saved = picture.save(&png, "PNG") && replaceFile(file, [&png](const TextSink& sink) {
                           const QByteArray& bytes = png.data();
                           return sink({bytes.constData(), static_cast<std::size_t>(bytes.size())});
                       });
    return saved ? ExitStatus::Done : refuse(file, QString::fromLatin1(saveFailureCaption));
}

} // namespace korvane::tool
