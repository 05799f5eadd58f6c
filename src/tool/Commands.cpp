#include "tool/Commands.h"

#include "formats/files/FileNames.h"
#include "formats/xsi/XsiReader.h"
#include "formats/xsi/XsiWriter.h"
#include "model/records/ModelText.h"

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>

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

ExitStatus wrongCall(const QString& reason) {
    std::fprintf(stderr, "korvane-tool: %s (korvane-tool alone shows how it is called)\n",
                 printable(reason).c_str());
    return ExitStatus::Usage;
}

bool isSameFile(const QString& in, const QString& out) {
    const auto path = [](const QString& file) {
        return std::filesystem::path(QFile::encodeName(file).toStdString());
    };
    std::error_code missing;
    return std::filesystem::equivalent(path(in), path(out), missing);
}

ExitStatus refuseInput(const QString& out) {
    return refuse(out, QStringLiteral("Would overwrite the input"));
}

QString refusalOf(ReadStatus status, const QString& file) {
    return status == ReadStatus::Missing ? QStringLiteral("No such file")
                                         : failureCaption(status, file);
}

bool open(const QString& file, ModelDocument& document) {
    if (!isTextModel(modelFileKind(file))) {
        refuse(file, QString::fromLatin1(notAModel));
        return false;
    }
    const ReadStatus status = FileOpenXSI(file, document);
    if (status != ReadStatus::Done) {
        refuse(file, refusalOf(status, file));
    }
    return status == ReadStatus::Done;
}

} // namespace korvane::tool
