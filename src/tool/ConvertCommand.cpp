#include "formats/XsiReader.h"
#include "formats/XsiWriter.h"
#include "tool/Commands.h"
#include "tool/Timing.h"

#include <QCommandLineParser>

#include <cstdio>
#include <vector>

namespace korvane::tool {

namespace {

ExitStatus convertOnce(const QString& in, const QString& out, double& load, double& save) {
    const Clock::time_point start = Clock::now();
    ModelDocument document;
    if (!open(in, document)) {
        return ExitStatus::Refused;
    }
    load = millisecondsSince(start);
    const Clock::time_point loaded = Clock::now();
    if (!SaveFileXSI(document, out)) {
        return refuse(out, QString::fromLatin1(saveFailureCaption));
    }
    save = millisecondsSince(loaded);
    return ExitStatus::Done;
}

} // namespace

ExitStatus convert(const QStringList& words) {
    const QCommandLineOption repeat(QStringLiteral("repeat"), {}, QStringLiteral("N"));
    QCommandLineParser parser;
    parser.addOption(repeat);
    if (!parser.parse(QStringList(QStringLiteral("convert")) + words)) {
        return usage(parser.errorText());
    }
    const QStringList files = parser.positionalArguments();
    bool valid = true;
    const int rounds = parser.isSet(repeat) ? parser.value(repeat).toInt(&valid) : 1;
    if (files.size() != 2 || !valid || rounds < 1) {
        return usage(
            QStringLiteral("convert needs IN and OUT.xsi, and a number above 0 to repeat"));
    }
    if (upperExtension(files[1]) != QLatin1String(".XSI")) {
        return usage(QStringLiteral("the name of the output must end in .xsi"));
    }
    std::vector<double> loads;
    std::vector<double> saves;
    for (int round = 0; round < rounds; ++round) {
        const ExitStatus status =
            convertOnce(files[0], files[1], loads.emplace_back(), saves.emplace_back());
        if (status != ExitStatus::Done) {
            return status;
        }
    }
    if (parser.isSet(repeat)) {
        std::printf("load median %.3f ms\nsave median %.3f ms\n", median(loads), median(saves));
    }
    return ExitStatus::Done;
}

} // namespace korvane::tool
